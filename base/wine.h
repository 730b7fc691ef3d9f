#pragma once

#include <windows.h>

namespace tarvik {

// Whether the program runs under Wine. Only for what Wine does differently, with the reason at the place.
inline bool IsWine() {
    static const bool isWine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return isWine;
}

}  // namespace tarvik
