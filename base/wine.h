#pragma once

#include <windows.h>

namespace tarvik {

// Whether the program runs under Wine. Use it only to work around a difference of Wine, and state which one.
inline bool IsWine() {
    static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine;
}

}  // namespace tarvik
