#pragma once

#include <string_view>

namespace tarvik {

// Whether a member's name, put behind a folder's path, names something inside that folder. Refused are names
// that start at a root, components that climb, drives and streams (any colon), a NUL, and the names that the
// system gives to devices, which lie in every folder and none.
bool StaysInside(std::wstring_view name);

}  // namespace tarvik
