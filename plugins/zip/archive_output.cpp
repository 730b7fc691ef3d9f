#include "plugins/zip/archive_output.h"

#include "base/same_file.h"
#include "tarvik/status.h"
#include "base/text.h"

namespace tarvik {

namespace {

// The current folder may change until the file has to go again.
std::wstring PinnedPath(const std::wstring& path) {
    if (path.empty()) throw StatusError(HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND));
    return FullPath(path);
}

// A file has a short name beside the one that folders list.
std::wstring ListedName(const std::wstring& path) {
    const std::wstring full =
        ReadPath([&](wchar_t* buffer) { GetLongPathNameW(path.c_str(), buffer, kPathLength); });
    return FileNameOf(full.empty() ? path : full);
}

}  // namespace

FileOutput::FileOutput(const std::wstring& path, bool overWrite)
    : path_(PinnedPath(path)),
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
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(offset);
    DWORD written = 0;
    if (SetFilePointerEx(file_.Get(), place, nullptr, FILE_BEGIN))
        WriteFile(file_.Get(), data, count, &written, nullptr);
    return written;
}

// Few files have the same name, so few are opened for this.
bool FileOutput::LiesAt(const std::wstring& path) const {
    return SameIgnoringCase(FileNameOf(path), name_) && IsSameFile(path, path_);
}

size_t StreamOutput::WriteAt(ULONGLONG offset, const void* data, DWORD count) {
    uint32_t written = 0;
    if (SUCCEEDED(stream_->Seek(offset, TVK::kFromBegin, nullptr))) stream_->Write(data, count, &written);
    return written;
}

}  // namespace tarvik
