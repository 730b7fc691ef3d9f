#include "app/unpack_folder.h"

#include <windows.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <string_view>
#include <vector>

#include "base/folder_reader.h"
#include "base/owners.h"
#include "base/private_security.h"
#include "base/shell_delete.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kLockSuffix = L".lock";

void ThrowLastErrorUnless(BOOL succeeded) {
    if (!succeeded) ThrowLastError();
}

UniqueHandle OpenLock(const std::wstring& path, SECURITY_ATTRIBUTES* security, DWORD disposition) {
    return UniqueHandle(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, security, disposition,
                                    FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

void DeleteAndClose(UniqueHandle file) {
    FILE_DISPOSITION_INFO deleted = {TRUE};
    SetFileInformationByHandle(file.Get(), FileDispositionInfo, &deleted, sizeof deleted);
}

// Whether the path is that of a folder, not a link, that the current user owns.
bool IsOwnFolder(const std::wstring& path) {
    const UniqueHandle folder(
        CreateFileW(path.c_str(), READ_CONTROL | FILE_READ_ATTRIBUTES,
                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    BY_HANDLE_FILE_INFORMATION info = {};
    constexpr DWORD kTypes = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return folder && GetFileInformationByHandle(folder.Get(), &info) &&
           (info.dwFileAttributes & kTypes) == FILE_ATTRIBUTE_DIRECTORY && IsOwnedByCurrentUser(folder);
}

// Returns whether the folder no longer exists.
bool RemoveFolder(const std::wstring& folder) {
    if (IsOwnFolder(folder)) DeleteFolder(folder);
    return !PathFileExistsW(folder.c_str());
}

// TV, eight hexadecimal digits and the suffix. The wildcards of FindFirstFile match more.
bool IsLockFileName(std::wstring_view name) {
    constexpr size_t kLength = 10;
    return name.size() > kLength && name.substr(kLength) == kLockSuffix && name.starts_with(L"TV") &&
           name.substr(2, kLength - 2).find_first_not_of(L"0123456789ABCDEF") == std::wstring_view::npos;
}

std::vector<std::wstring> FindFoldersWithLock(const std::wstring& temp) {
    std::vector<std::wstring> folders;
    FolderReader reader(temp + L"\\TV*" + kLockSuffix);
    while (reader.Next()) {
        const std::wstring name = reader.Entry().cFileName;
        if (IsLockFileName(name)) folders.push_back(temp + L"\\" + name.substr(0, name.rfind(L'.')));
    }
    return folders;
}

// Without the environment variable the path is empty, and the folder would be created in the root of the
// drive.
void RequireAbsolute(const std::wstring& temp) {
    if (PathIsRelativeW((temp + L"\\").c_str())) throw StatusError(E_FAIL);
}

}  // namespace

void UnpackFolder::RemoveAbandoned(const std::wstring& temp) {
    RequireAbsolute(temp);
    for (const std::wstring& folder : FindFoldersWithLock(temp)) {
        UniqueHandle lock = OpenLock(folder + kLockSuffix, nullptr, OPEN_EXISTING);
        if (lock && IsOwnedByCurrentUser(lock) && RemoveFolder(folder)) DeleteAndClose(std::move(lock));
    }
}

// Creates the lock first, so that no other process finds the folder without it.
void UnpackFolder::Create(const std::wstring& temp, const std::wstring& name) {
    RequireAbsolute(temp);
    const std::wstring path = temp + L"\\" + name;
    if (!temp.empty() && !PathIsDirectoryW(temp.c_str()) && SHCreateDirectory(nullptr, temp.c_str()) != 0)
        throw StatusError(E_FAIL);
    PrivateSecurity security;
    UniqueHandle lock = OpenLock(path + kLockSuffix, security.Get(), CREATE_NEW);
    ThrowLastErrorUnless(static_cast<bool>(lock));
    if (!CreateDirectoryW(path.c_str(), security.Get())) {
        const HRESULT status = LastFailureStatus();
        DeleteAndClose(std::move(lock));
        throw StatusError(status);
    }
    path_ = path;
    lock_ = std::move(lock);
}

// Retries, because operations that pages started may hold files open for a moment longer.
void UnpackFolder::Remove() {
    constexpr int kAttempts = 20;
    constexpr DWORD kPause = 50;
    for (int i = 0; i < kAttempts && lock_; ++i) {
        if (i > 0) Sleep(kPause);
        if (RemoveFolder(path_)) DeleteAndClose(std::move(lock_));
    }
    lock_.Reset();
}

}  // namespace tarvik
