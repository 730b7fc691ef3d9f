#include "page_control/engine/profile.h"

#include <windows.h>

#include "base/path.h"
#include "base/private_security.h"
#include "base/shell_delete.h"
#include "page_control/engine/application_name.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kLockTimeout = 1000;  // milliseconds
constexpr DWORD kRetryInterval = 20;

std::wstring Variable(const wchar_t* name) {
    return ReadPath([name](wchar_t* buffer) { GetEnvironmentVariableW(name, buffer, kPathLength); });
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && attributes & FILE_ATTRIBUTE_DIRECTORY;
}

// A file beside the profile, so that the profile can be renamed. The system deletes it with this process,
// even if that is killed. Null if another process has it.
UniqueHandle Lock(const std::wstring& folder, PrivateSecurity& security) {
    const ULONGLONG end = GetTickCount64() + kLockTimeout;
    for (;;) {
        UniqueHandle lock(CreateFileW((folder + L".lock").c_str(), GENERIC_WRITE | DELETE, 0, security.Get(),
                                      CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE,
                                      nullptr));
        const DWORD error = lock ? ERROR_SUCCESS : GetLastError();
        const bool isHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
        if (lock || (isHeld && GetTickCount64() > end)) return lock;
        if (!isHeld) throw StatusError(HRESULT_FROM_WIN32(error));
        Sleep(kRetryInterval);
    }
}

}  // namespace

Profile::Profile(const Report& report) {
    if (_wcsicmp(Variable(L"TARVIK_PROFILE").c_str(), L"temporary") == 0) return;
    const std::wstring parent = Variable(L"LOCALAPPDATA");
    const std::wstring folder = parent + L"\\Tarvik\\" + ApplicationName();
    bool isFree = false;
    const HRESULT status = Guard([&] {
        if (parent.empty()) throw StatusError(HRESULT_FROM_WIN32(ERROR_ENVVAR_NOT_FOUND));
        isFree = Open(folder);
    });
    if (isFree || !report) return;
    const std::wstring reason = SUCCEEDED(status) ? L"is in use by another process" : L"cannot be opened";
    report(L"The profile \"" + folder + L"\" " + reason + L". What pages store is lost at the end.");
}

bool Profile::Open(const std::wstring& folder) {
    PrivateSecurity security;
    CreateDirectoryW(ParentFolder(folder).c_str(), nullptr);
    lock_ = Lock(folder, security);
    if (!lock_) return false;
    isNew_ = CreateDirectoryW(folder.c_str(), security.Get()) != FALSE;
    if (!isNew_ && GetLastError() != ERROR_ALREADY_EXISTS) ThrowLastError();
    folder_ = folder;
    if (!IsFolder(folder) && !SetAside()) {
        folder_.clear();
        throw StatusError(E_FAIL);
    }
    return true;
}

bool Profile::SetAside() {
    if (folder_.empty() || isNew_) return false;
    DeleteFolder(DamagedFolder());
    PrivateSecurity security;
    if (!MoveFileW(folder_.c_str(), DamagedFolder().c_str())) return false;
    isNew_ = CreateDirectoryW(folder_.c_str(), security.Get()) != FALSE;
    return isNew_;
}

void Profile::Restore() {
    DeleteFolder(folder_);
    isNew_ = !MoveFileW(DamagedFolder().c_str(), folder_.c_str());
}

}  // namespace tarvik
