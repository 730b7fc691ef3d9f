#pragma once

#include <string>

namespace tarvik {

// Ends the program with exit code 1 because its pages cannot, and reports the reason. Does nothing if a page
// has called `quit`.
void EndProgram(const std::wstring& reason);

}  // namespace tarvik
