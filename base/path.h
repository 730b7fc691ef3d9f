#pragma once

#include <string>
#include <string_view>

namespace tarvik {

// The folder of a path, without a separator at its end unless it is a root ("C:\"); empty for a root and for
// a path without a separator.
std::wstring ParentFolder(std::wstring_view path, std::wstring_view separators = L"\\/");

// Whether the path exists and is not a folder.
bool IsFile(const std::wstring& path);

}  // namespace tarvik
