#include "archive/source_file.h"

#include "archive/file_time.h"
#include "base/status.h"

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
    DWORD read = 0;
    if (!ReadFile(file_.Get(), buffer, static_cast<DWORD>(count), &read, nullptr)) return kFailed;
    read_ += read;
    const bool isWrong = read == 0 ? read_ != size_ : read_ > size_;
    return isWrong ? kFailed : read;
}

}  // namespace tarvik
