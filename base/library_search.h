#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// From here on, a library that is loaded by its name alone comes from the system's folder: a file in the
// current folder, which holds the application, or beside the executable never replaces one of the system.
// Call it before anything is loaded. On a Windows 7 without the update KB2533623 only the current folder is
// left out.
void UseSystemLibrariesOnly();

// Loads one file, by its full path. The libraries that it needs come from its own folder or from the
// system's.
UniqueModule LoadLibraryByPath(const std::wstring& path);

}  // namespace tarvik
