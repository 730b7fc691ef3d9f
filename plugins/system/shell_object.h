#pragma once

#include <windows.h>
#include <objbase.h>

#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

// Creates an object of a shell class; a failure is thrown.
template <class Interface>
ComPtr<Interface> CreateShellObject(REFCLSID id, REFIID iid = __uuidof(Interface)) {
    ComPtr<Interface> created;
    ThrowIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, iid,
                                   reinterpret_cast<void**>(created.GetAddressOf())));
    return created;
}

// Interprets the result of ShellExecuteW, which is a number, not a handle.
inline bool ShellExecuteSucceeded(HINSTANCE result) {
    constexpr INT_PTR kLastError = 32;
    return reinterpret_cast<INT_PTR>(result) > kLastError;
}

}  // namespace tarvik
