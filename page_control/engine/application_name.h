#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// What identifies the application of a program, as the name of a folder: "company - product", from the
// program's version resource, or without a product the program's file name without its extension.
std::wstring ApplicationName(HMODULE program = nullptr);

}  // namespace tarvik
