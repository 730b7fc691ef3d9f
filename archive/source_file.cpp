#include "archive/source_file.h"

#include <algorithm>

#include "archive/file_time.h"
#include "tarvik/status.h"

namespace tarvik {

SourceFile::SourceFile(const std::wstring& path)
    : file_(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                        nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {
    LARGE_INTEGER size = {};
    FILETIME modified = {};
    if (!file_ || !GetFileSizeEx(file_.Get(), &size) ||
        !GetFileTime(file_.Get(), nullptr, nullptr, &modified))
        throw StatusError(E_FAIL);
    size_ = static_cast<ULONGLONG>(size.QuadPart);
    modified_ = ToSeconds(modified);
}

size_t SourceFile::Read(void* buffer, size_t count) {
    const auto wanted = static_cast<DWORD>(std::min<ULONGLONG>(count, size_ - read_));
    if (wanted == 0) return 0;
    DWORD read = 0;
    if (!ReadFile(file_.Get(), buffer, wanted, &read, nullptr) || read == 0) return kFailed;
    read_ += read;
    return read;
}

bool SourceFile::HasGrown() const {
    LARGE_INTEGER size = {};
    return GetFileSizeEx(file_.Get(), &size) && static_cast<ULONGLONG>(size.QuadPart) > size_;
}

}  // namespace tarvik
