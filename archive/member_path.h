#pragma once

#include <string_view>

namespace tarvik {

// Whether a member's name, appended to a folder's path, denotes something inside that folder. Refused are
// names that start at a root, components that climb, drives and streams (any colon), a NUL, and the names of
// devices, which the system recognises in every folder.
bool StaysInside(std::wstring_view name);

}  // namespace tarvik
