#pragma once

#include <windows.h>

#include <exception>
#include <new>

// No C++ exception may leave a library. Inside one, a failure travels as an exception all the same; the kit
// turns it into a status wherever the host or the system calls in.
namespace TVK {

// Script sees the status as the `number` of an Error.
class Failure : public std::exception {
  public:
    explicit Failure(HRESULT status) noexcept : status_(status) {}
    HRESULT Status() const noexcept { return status_; }
    const char* what() const noexcept override { return "failed status"; }

  private:
    HRESULT status_;
};

inline void Check(HRESULT status) {
    if (FAILED(status)) throw Failure(status);
}

// Right after a failed call of the system: its last error as a status.
[[noreturn]] inline void ThrowLastError() {
    const HRESULT status = HRESULT_FROM_WIN32(GetLastError());
    throw Failure(FAILED(status) ? status : E_FAIL);
}

// Does the work; answers S_OK, or the status of what it threw.
template <class Work>
HRESULT Guard(Work&& work) noexcept {
    try {
        work();
        return S_OK;
    } catch (const Failure& failure) {
        return failure.Status();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

}  // namespace TVK
