#include "plugins/system/system_calls.h"

#include <powrprof.h>

#include "plugins/system/administrator.h"
#include "plugins/system/shell_object.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

class WindowsCalls : public SystemCalls {
  public:
    bool IsAdministrator() override { return tarvik::IsAdministrator(); }
    bool EndSession(UINT how) override { return ExitWindowsEx(how, SHTDN_REASON_FLAG_PLANNED) != FALSE; }
    bool Suspend(bool hibernate) override { return SetSuspendState(hibernate, FALSE, FALSE) != FALSE; }
    bool LockScreen() override { return LockWorkStation() != FALSE; }
    void TurnOffMonitor() override {
        constexpr LPARAM kOff = 2;
        PostMessageW(HWND_BROADCAST, WM_SYSCOMMAND, SC_MONITORPOWER, kOff);
    }
    void QuitProgram() override { PostQuitMessage(0); }

    bool Open(const wchar_t* verb, const wchar_t* file, const wchar_t* parameters,
              const wchar_t* folder) override {
        return ShellExecuteSucceeded(ShellExecuteW(nullptr, verb, file, parameters, folder, SW_SHOWNORMAL));
    }
    bool Execute(SHELLEXECUTEINFOW& info) override { return ShellExecuteExW(&info) != FALSE; }
};

}  // namespace

SystemCalls& DefaultSystemCalls() {
    static WindowsCalls calls;
    return calls;
}

void EnableShutdownPrivilege() {
    UniqueHandle token;
    TOKEN_PRIVILEGES wanted = {};
    wanted.PrivilegeCount = 1;
    wanted.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, token.Receive()) &&
        LookupPrivilegeValueW(nullptr, SE_SHUTDOWN_NAME, &wanted.Privileges[0].Luid))
        AdjustTokenPrivileges(token.Get(), FALSE, &wanted, 0, nullptr, nullptr);
}

}  // namespace tarvik
