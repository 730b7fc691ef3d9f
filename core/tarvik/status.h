#pragma once

#include <windows.h>

#include <exception>
#include <new>
#include <utility>

namespace tarvik {

// A failure on its way to the nearest boundary (a COM method, a thread's function), where Guard turns it back
// into the status it carries.
class StatusError : public std::exception {
  public:
    explicit StatusError(HRESULT status) noexcept : status_(status) {}
    HRESULT Status() const noexcept { return status_; }
    const char* what() const noexcept override { return "failed status"; }

  private:
    HRESULT status_;
};

inline void ThrowIfFailed(HRESULT status) {
    if (FAILED(status)) throw StatusError(status);
}

// The status of a failed platform call: the thread's last error, or E_FAIL if the call left none.
HRESULT LastFailureStatus() noexcept;
[[noreturn]] void ThrowLastError();

// The same, but a call that left no error counts as success: S_OK. The contract requires that where the
// status is all that a member returns: deleting a file, INI files, input, exit codes, the status of
// CreateBrowserWindow.
HRESULT LastErrorStatus() noexcept;

// Whether a call failed because the apartment, process or page that its object lived in has gone: what
// proxies answer then, and the page control.
bool IsDisconnected(HRESULT status) noexcept;

// The status of the exception being handled. Call only inside a catch block.
HRESULT CaughtStatus() noexcept;

// The one boundary between exceptions and statuses. The work returns a status or nothing.
template <class Work>
[[nodiscard]] HRESULT Guard(Work&& work) noexcept {
    try {
        if constexpr (std::is_void_v<decltype(work())>) {
            work();
            return S_OK;
        } else {
            return work();
        }
    } catch (...) {
        return CaughtStatus();
    }
}

}  // namespace tarvik
