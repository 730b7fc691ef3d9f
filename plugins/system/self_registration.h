#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// Loads a library, calls an exported function without arguments, such as DllRegisterServer, frees the library
// and returns the function's status.
HRESULT CallRegistration(const std::wstring& path, const char* function);

}  // namespace tarvik
