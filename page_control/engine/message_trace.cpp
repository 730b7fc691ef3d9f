#include "page_control/engine/message_trace.h"

#include <algorithm>
#include <string>

#include "base/path.h"

namespace tarvik {

namespace {

constexpr size_t kMaxLength = 16 * 1024;  // cuts off screenshots and other long messages

}  // namespace

MessageTrace::MessageTrace() {
    const std::wstring path = ReadPath(
        [](wchar_t* buffer) { GetEnvironmentVariableW(L"TARVIK_DEVTOOLS_TRACE", buffer, kPathLength); });
    if (path.empty()) return;
    file_.Reset(CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

// Messages that are sent together are separated by NULs.
void MessageTrace::Write(const char* direction, std::string_view message) {
    if (!file_) return;
    std::string lines;
    while (!message.empty()) {
        const size_t end = std::min(message.find('\0'), message.size());
        lines.append(direction).append(message.substr(0, std::min(end, kMaxLength))) += '\n';
        message.remove_prefix(std::min(end + 1, message.size()));
    }
    const std::lock_guard lock(lock_);
    DWORD written = 0;
    WriteFile(file_.Get(), lines.data(), static_cast<DWORD>(lines.size()), &written, nullptr);
}

}  // namespace tarvik
