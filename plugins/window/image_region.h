#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// Loads a bitmap file; null if the system cannot read it.
UniqueGdi LoadBitmapFile(const wchar_t* path);

SIZE SizeOf(HGDIOBJ bitmap);

// The region of the pixels that are not exactly white. Null if out of memory.
UniqueGdi RegionFromImage(HGDIOBJ bitmap);

}  // namespace tarvik
