#pragma once

#include <string>

namespace tarvik {

// Whether a full path, of which the last part need not be there, leads into a folder, at whatever depth.
bool LiesIn(const std::wstring& path, const std::wstring& folder);

// Throws a Failure for a folder that is there and not empty, and for a file.
void CheckIsFree(const std::wstring& folder);

}  // namespace tarvik
