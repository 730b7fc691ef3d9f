#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// After this call, libraries loaded by name come from the system's folder only: a file beside the executable
// or in the current folder, which belongs to the application, never replaces a library of the system. Call it
// before anything is loaded. On a Windows 7 without the update KB2533623 it excludes only the current folder.
void UseSystemLibrariesOnly();

// Loads a library by its full path, and the libraries that it needs from its own folder or the system's.
// Empty on failure; the last error is then set.
UniqueModule LoadLibraryByPath(const std::wstring& path);

}  // namespace tarvik
