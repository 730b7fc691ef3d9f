#include "base/write_file.h"

#include <algorithm>

#include "tarvik/status.h"

namespace tarvik {

void WriteAll(HANDLE file, const void* bytes, size_t count) {
    constexpr size_t kMaxChunk = 1 << 30;  // WriteFile takes the count as a DWORD
    const auto* next = static_cast<const char*>(bytes);
    while (count > 0) {
        DWORD written = 0;
        if (!WriteFile(file, next, static_cast<DWORD>(std::min(count, kMaxChunk)), &written, nullptr))
            ThrowLastError();
        if (written == 0) throw StatusError(HRESULT_FROM_WIN32(ERROR_DISK_FULL));
        next += written;
        count -= written;
    }
}

}  // namespace tarvik
