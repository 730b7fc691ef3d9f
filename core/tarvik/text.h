#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// Conversions between UTF-16 and byte strings. Bytes that the code page does not know become its replacement.
std::wstring Widen(std::string_view text, UINT codePage = CP_UTF8);
std::string Narrow(std::wstring_view text, UINT codePage = CP_UTF8);

}  // namespace tarvik
