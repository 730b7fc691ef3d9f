#pragma once

#include <string>

namespace tarvik {

// Tells the author of an application why it does not start: writes the text and a line feed to the debugger,
// and to standard error or the console of the parent process, if there is one. Any thread; never fails.
void ReportToAuthor(const std::wstring& text) noexcept;

}  // namespace tarvik
