#pragma once

#include <string>

namespace tarvik {

// "/home/x/page.html" for "C:\\...\\page.html"; empty on Windows.
std::string UnixPath(const std::wstring& path);

// The reverse.
std::wstring DosPath(const std::string& path);

}  // namespace tarvik
