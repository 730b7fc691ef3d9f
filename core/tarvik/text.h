#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// Convert text to and from UTF-16. The other encoding is UTF-8, unless `codePage` names another one. The
// system's replacement character stands for what cannot be converted. At most INT_MAX units. Throw
// std::bad_alloc.
std::wstring Widen(std::string_view text, UINT codePage = CP_UTF8);
std::string Narrow(std::wstring_view text, UINT codePage = CP_UTF8);

// A number in decimal digits. std::to_wstring would link the formatting of fractions, 11 kB.
std::wstring DecimalText(long long number);

}  // namespace tarvik
