#pragma once

#include <windows.h>
#include <shellapi.h>

namespace tarvik {

// What acts on the user's session, on rights and on programs. It is in one place so that tests can put
// something harmless there, and see what would have been done.
class SystemCalls {
  public:
    virtual ~SystemCalls() = default;

    virtual bool IsAdministrator() = 0;
    virtual bool EndSession(UINT how) = 0;  // EWX_...
    virtual bool Suspend(bool hibernate) = 0;
    virtual bool LockScreen() = 0;
    virtual void TurnOffMonitor() = 0;
    virtual void QuitProgram() = 0;

    // Both ways to start a program or open a file. The verb "runas" asks the user for more rights. Execute
    // leaves the system's error when it fails.
    virtual bool Open(const wchar_t* verb, const wchar_t* file, const wchar_t* parameters,
                      const wchar_t* folder) = 0;
    virtual bool Execute(SHELLEXECUTEINFOW& info) = 0;
};

SystemCalls& RealSystemCalls();

// Without it the power state cannot be changed. A failure shows in the call that needed it.
void EnableShutdownPrivilege();

}  // namespace tarvik
