#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// Convert between UTF-16 and a code page; the system's replacement character stands for what cannot be
// converted. Text is limited to INT_MAX units. Throw std::bad_alloc.
std::wstring Widen(std::string_view text, UINT codePage = CP_UTF8);
std::string Narrow(std::wstring_view text, UINT codePage = CP_UTF8);

}  // namespace tarvik
