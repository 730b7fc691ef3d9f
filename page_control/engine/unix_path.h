#pragma once

#include <string>

namespace tarvik {

// "/home/x/page.html" for "C:\\...\\page.html"; empty on Windows.
std::string UnixPath(const std::wstring& path);

// A path as the engine takes it: the Unix path under Wine.
std::string EnginePath(const std::wstring& path);

// The reverse of UnixPath.
std::wstring DosPath(const std::string& path);

}  // namespace tarvik
