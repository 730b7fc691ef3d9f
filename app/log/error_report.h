#pragma once

#include <string>

namespace tarvik {

// Reports to the developer of an application why it does not start, or ends: writes the text and a line feed
// to the debugger, and to standard error or else the console of the parent process, if there is one. Any
// thread; failures are ignored.
void ReportError(const std::wstring& text) noexcept;

}  // namespace tarvik
