#pragma once

#include <string>

namespace tarvik {

// Whether two paths, which may be written in different ways, lead to one file or folder that exists.
bool IsSameFile(const std::wstring& left, const std::wstring& right);

}  // namespace tarvik
