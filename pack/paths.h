#pragma once

#include <string>

namespace tarvik {

// Whether a full path, which need not exist, is inside a folder, at any depth.
bool IsInside(const std::wstring& path, const std::wstring& folder);

// Throws a Failure if the path is a file or a folder with contents.
void CheckIsNewFolder(const std::wstring& folder);

}  // namespace tarvik
