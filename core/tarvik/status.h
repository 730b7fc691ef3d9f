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

// The status of a failed system call: GetLastError() as an HRESULT, or E_FAIL if the call left no error.
HRESULT LastFailureStatus() noexcept;

// Throws LastFailureStatus() as a StatusError.
[[noreturn]] void ThrowLastError();

// The status of the exception being handled: that of a StatusError, E_OUTOFMEMORY for std::bad_alloc,
// otherwise E_FAIL. For a catch block of your own; call it nowhere else.
HRESULT CaughtStatus() noexcept;

// Calls `work` and returns its HRESULT, S_OK if it returns void. An exception becomes a status, as
// CaughtStatus says.
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
