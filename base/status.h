#pragma once

#include <windows.h>

namespace tarvik {

// The calling thread's last error as a status, S_OK if there is none. For members whose only result is a
// status, where the contract counts a call that left no error as a success.
HRESULT LastErrorStatus() noexcept;

// Whether a call failed because the apartment, process or page of its object has been destroyed.
bool IsDisconnected(HRESULT status) noexcept;

}  // namespace tarvik
