#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// Restricts libraries that are loaded by name to the system's folder. A file beside the executable or in the
// application's folder, the current one, then cannot pass for a library of the system. Call it before any
// library is loaded. Windows 7 without the update KB2533623 can only exclude the current folder.
void UseSystemLibrariesOnly();

// Loads a library by its full path, and the libraries that it needs from its own folder or the system's.
// Empty on failure; the last error is then set.
UniqueModule LoadLibraryByPath(const std::wstring& path);

}  // namespace tarvik
