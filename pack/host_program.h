#pragma once

#include <string>

namespace tarvik {

// Throws a Failure unless the file is a program that an application can be put into: one for 64-bit Windows,
// not signed, and with nothing attached to it.
void CheckHost(const std::wstring& path);

}  // namespace tarvik
