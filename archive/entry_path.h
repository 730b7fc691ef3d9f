#pragma once

#include <string_view>

namespace tarvik {

// Whether an entry's path, appended to that of a folder, stays inside that folder. Rejects absolute paths,
// parent references, drives and alternate streams (any colon), NULs, and device names, which the system
// recognises in every folder.
bool IsSafeEntryPath(std::wstring_view path);

}  // namespace tarvik
