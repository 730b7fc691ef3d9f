#pragma once

#include <string>

namespace tarvik {

// Whether two paths, however they are spelled, refer to the same existing file or folder.
bool IsSameFile(const std::wstring& left, const std::wstring& right);

}  // namespace tarvik
