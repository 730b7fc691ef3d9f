#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// Loads a library, calls a function of it that takes nothing, and frees it; the status is the function's own.
HRESULT CallRegistration(const std::wstring& path, const char* function);

}  // namespace tarvik
