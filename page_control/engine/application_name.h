#pragma once

#include <string>

namespace tarvik {

// What identifies the application of this program, as the name of a folder: "company - product", from the
// version resource, or without a product the program's file name without its extension. Never empty.
std::wstring ApplicationName();
std::wstring ApplicationName(const std::wstring& company, const std::wstring& product,
                             const std::wstring& program);

}  // namespace tarvik
