#include "pack/unfinished_file.h"

#include "cli/failure.h"

namespace tarvik {

UnfinishedFile::UnfinishedFile(const std::wstring& source, const std::wstring& output)
    : output_(output), path_(output + L"." + std::to_wstring(GetCurrentProcessId()) + L".tmp") {
    if (!CopyFileW(source.c_str(), path_.c_str(), TRUE)) {
        const HRESULT status = LastFailureStatus();
        if (status != HRESULT_FROM_WIN32(ERROR_FILE_EXISTS)) DeleteFileW(path_.c_str());
        FailAs(L"\"" + path_ + L"\" cannot be created", status);
    }
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

UnfinishedFile::~UnfinishedFile() {
    if (!path_.empty()) DeleteFileW(path_.c_str());
}

ULONGLONG UnfinishedFile::Finish() {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(path_.c_str(), GetFileExInfoStandard, &data);
    if (!MoveFileExW(path_.c_str(), output_.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        FailWithLastError(L"\"" + output_ + L"\" cannot be replaced (is it running?)");
    path_.clear();
    return ULARGE_INTEGER{{data.nFileSizeLow, data.nFileSizeHigh}}.QuadPart;
}

}  // namespace tarvik
