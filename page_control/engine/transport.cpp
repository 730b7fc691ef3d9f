#include "page_control/engine/transport.h"

namespace tarvik {

bool Transport::Write(std::string_view message) {
    const std::lock_guard lock(writing_);
    if (!toEngine_) return false;
    trace_.WriteSent(message);
    std::string framed(message);
    framed += '\0';
    for (size_t sent = 0; sent < framed.size();) {
        DWORD written = 0;
        const auto left = static_cast<DWORD>(framed.size() - sent);
        if (!WriteFile(toEngine_.Get(), framed.data() + sent, left, &written, nullptr) || !written)
            return false;
        sent += written;
    }
    return true;
}

DWORD Transport::Read(char* buffer, DWORD size) {
    DWORD read = 0;
    return ReadFile(fromEngine_.Get(), buffer, size, &read, nullptr) ? read : 0;
}

void Transport::CloseWriting() {
    const std::lock_guard lock(writing_);
    toEngine_.Reset();
}

}  // namespace tarvik
