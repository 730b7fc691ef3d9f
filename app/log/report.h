#pragma once

#include <string>

namespace tarvik {

// Tells the author of an application why it does not start: on the debugger's channel, and on the standard
// error or the console from which the program was started, where there is one. Never fails.
void ReportToAuthor(const std::wstring& text) noexcept;

}  // namespace tarvik
