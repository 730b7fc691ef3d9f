#include "plugins/file/file_size.h"

#include "tarvik/owners.h"

namespace tarvik {

std::optional<ULONGLONG> FileSize(const std::wstring& path) {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const UniqueHandle file(
        CreateFileW(path.c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.Get(), &size)) return std::nullopt;
    return static_cast<ULONGLONG>(size.QuadPart);
}

}  // namespace tarvik
