#include "archive/entry_output.h"

#include <shlobj.h>
#include <shlwapi.h>

#include <algorithm>

#include "archive/file_time.h"
#include "base/path.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// The folder of an entry's path; empty if none has to be created. ZIP separates by slashes: for a name with
// backslashes no folders are created.
std::wstring ParentOfEntry(std::wstring_view path) {
    std::wstring folder = ParentFolder(path, L"/");
    std::ranges::replace(folder, L'/', L'\\');
    return folder;
}

}  // namespace

std::wstring EntryOutput::PreparePath(std::wstring_view name) {
    std::wstring path = folder_ + L'\\';
    path += name;
    if (std::wstring folder = ParentOfEntry(path); !folder.empty() && !createdFolders_.contains(folder)) {
        SHCreateDirectory(nullptr, folder.c_str());
        createdFolders_.insert(std::move(folder));
    }
    return path;
}

UniqueHandle EntryOutput::Open(const std::wstring& path) const {
    UniqueHandle file(
        IsFolderPath(path)
            ? CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_ATTRIBUTE_DIRECTORY, nullptr)
            : CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                          overWrite_ ? CREATE_ALWAYS : CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file) return file;
    const HRESULT status = LastFailureStatus();
    throw StatusError(HasTypeConflict(path) ? HRESULT_FROM_WIN32(ERROR_ALREADY_EXISTS) : status);
}

bool EntryOutput::HasTypeConflict(const std::wstring& path) const {
    for (size_t end = folder_.size(); end < path.size(); end = path.find_first_of(L"/\\", end + 1)) {
        if (IsFile(path.substr(0, end))) return true;
    }
    return !IsFolderPath(path) && PathIsDirectoryW(path.c_str());
}

bool IsFolderPath(std::wstring_view path) {
    return path.ends_with(L'/');
}

void SetTimes(HANDLE file, std::time_t modified) {
    const FILETIME time = ToFileTime(modified);
    SetFileTime(file, &time, nullptr, &time);
}

}  // namespace tarvik
