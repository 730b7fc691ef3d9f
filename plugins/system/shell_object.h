#pragma once

#include <windows.h>
#include <objbase.h>

#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

// A new object of a class of the shell's; a failure throws.
template <class Interface>
ComPtr<Interface> MakeShellObject(REFCLSID id, REFIID iid = __uuidof(Interface)) {
    ComPtr<Interface> made;
    ThrowIfFailed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, iid,
                                   reinterpret_cast<void**>(made.GetAddressOf())));
    return made;
}

// Whether ShellExecute has started what it was asked to: its answer is a number, and not a handle.
inline bool HasStarted(HINSTANCE answer) {
    constexpr INT_PTR kLastError = 32;
    return reinterpret_cast<INT_PTR>(answer) > kLastError;
}

}  // namespace tarvik
