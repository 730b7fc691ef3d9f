#pragma once

#include <windows.h>
#include <shellapi.h>

namespace tarvik {

// The calls that affect the user's session, privileges and programs. Tests replace them with harmless ones
// that record each call.
class SystemCalls {
  public:
    virtual ~SystemCalls() = default;

    virtual bool IsAdministrator() = 0;
    virtual bool EndSession(UINT how) = 0;  // EWX_...
    virtual bool Suspend(bool hibernate) = 0;
    virtual bool LockScreen() = 0;
    virtual void TurnOffMonitor() = 0;
    virtual void QuitProgram() = 0;

    // Both start a program or open a file. The verb "runas" prompts for elevation. Execute sets the last
    // error if it fails.
    virtual bool Open(const wchar_t* verb, const wchar_t* file, const wchar_t* parameters,
                      const wchar_t* folder) = 0;
    virtual bool Execute(SHELLEXECUTEINFOW& info) = 0;
};

SystemCalls& DefaultSystemCalls();

// Changing the power state requires this privilege. Failures are ignored: the call that needs it reports
// them.
void EnableShutdownPrivilege();

}  // namespace tarvik
