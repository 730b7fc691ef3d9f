#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// Compares ordinally; ignores the case of all letters, not only of ASCII.
bool EqualsIgnoreCase(std::wstring_view left, std::wstring_view right);

// The system's message for a status, without a full stop; empty if there is none.
std::wstring SystemText(HRESULT status);

// The text as one quoted argument of a command line, as CommandLineToArgvW parses it.
std::wstring QuoteArgument(std::wstring_view text);

}  // namespace tarvik
