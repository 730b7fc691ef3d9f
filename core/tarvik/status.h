#pragma once

#include <windows.h>

#include <exception>
#include <new>
#include <type_traits>
#include <utility>

namespace tarvik {

// A failed status as an exception. Guard converts it back where no exception may leave: in COM methods,
// window procedures and thread functions.
class StatusError : public std::exception {
  public:
    explicit StatusError(HRESULT status) noexcept : status_(status) {}
    HRESULT Status() const noexcept { return status_; }
    const char* what() const noexcept override { return "failed status"; }

  private:
    HRESULT status_;
};

// Throws StatusError.
inline void ThrowIfFailed(HRESULT status) {
    if (FAILED(status)) throw StatusError(status);
}

// The status of a failed system call: the calling thread's last error, or E_FAIL if the call left none.
HRESULT LastFailureStatus() noexcept;

// Throws LastFailureStatus() as a StatusError.
[[noreturn]] void ThrowLastError();

// The calling thread's last error as a status, S_OK if there is none. For members whose only result is a
// status, where the contract counts a call that left no error as a success.
HRESULT LastErrorStatus() noexcept;

// Whether a call failed because the apartment, process or page of its object has been destroyed.
bool IsDisconnected(HRESULT status) noexcept;

// The status of the exception being handled: that of a StatusError, E_OUTOFMEMORY for std::bad_alloc,
// otherwise E_FAIL. Call it only in a catch block.
HRESULT CaughtStatus() noexcept;

// Calls `work`, which returns HRESULT or void, and converts an exception to a status (CaughtStatus).
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
