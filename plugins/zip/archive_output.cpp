#include "plugins/zip/archive_output.h"

#include "base/path.h"
#include "base/same_file.h"
#include "base/text.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// Absolute, because the current folder may change before the destructor deletes the file.
std::wstring AbsolutePath(const std::wstring& path) {
    if (path.empty()) throw StatusError(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND));
    return FullPath(path);
}

// The name that the folder lists, not the short one.
std::wstring ListedName(const std::wstring& path) {
    const std::wstring full =
        ReadPath([&](wchar_t* buffer) { GetLongPathNameW(path.c_str(), buffer, kPathLength); });
    return FileNameOf(full.empty() ? path : full);
}

}  // namespace

FileOutput::FileOutput(const std::wstring& path, bool overWrite)
    : path_(AbsolutePath(path)),
      file_(CreateFileW(path_.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                        overWrite ? CREATE_ALWAYS : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    if (!file_) ThrowLastError();
    name_ = ListedName(path_);
}

FileOutput::~FileOutput() {
    if (!file_) return;
    file_.Reset();
    DeleteFileW(path_.c_str());
}

size_t FileOutput::WriteAt(ULONGLONG offset, const void* data, DWORD count) {
    LARGE_INTEGER position;
    position.QuadPart = static_cast<LONGLONG>(offset);
    DWORD written = 0;
    if (SetFilePointerEx(file_.Get(), position, nullptr, FILE_BEGIN))
        WriteFile(file_.Get(), data, count, &written, nullptr);
    return written;
}

// Compares the names first, so that few files are opened.
bool FileOutput::IsAt(const std::wstring& path) const {
    return EqualsIgnoreCase(FileNameOf(path), name_) && IsSameFile(path, path_);
}

size_t StreamOutput::WriteAt(ULONGLONG offset, const void* data, DWORD count) {
    uint32_t written = 0;
    if (SUCCEEDED(stream_->Seek(offset, TVK::kFromBegin, nullptr))) stream_->Write(data, count, &written);
    return written;
}

}  // namespace tarvik
