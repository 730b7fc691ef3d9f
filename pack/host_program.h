#pragma once

#include <string>

namespace tarvik {

// Throws a Failure unless an application can be attached to the program: it must be for 64-bit Windows,
// unsigned, and have no archive yet.
void CheckHost(const std::wstring& path);

}  // namespace tarvik
