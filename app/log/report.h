#pragma once

#include <string>

namespace tarvik {

// Reports to the author of an application why it does not start: on the debugger's channel, and on standard
// error or the console of the parent process if there is one. A line feed is added. Any thread; never fails.
void ReportToAuthor(const std::wstring& text) noexcept;

}  // namespace tarvik
