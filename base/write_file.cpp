#include "base/write_file.h"

#include <algorithm>

#include "tarvik/status.h"

namespace tarvik {

void WriteAll(HANDLE file, const void* bytes, size_t count) {
    constexpr size_t kMost = 1 << 30;  // per call; the count of WriteFile is a DWORD
    const auto* at = static_cast<const char*>(bytes);
    while (count > 0) {
        DWORD written = 0;
        if (!WriteFile(file, at, static_cast<DWORD>(std::min(count, kMost)), &written, nullptr))
            ThrowLastError();
        if (written == 0) throw StatusError(HRESULT_FROM_WIN32(ERROR_DISK_FULL));
        at += written;
        count -= written;
    }
}

}  // namespace tarvik
