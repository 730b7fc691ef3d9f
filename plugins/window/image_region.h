#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// Loads a bitmap file; null if the system cannot read it.
UniqueGdi LoadPicture(const wchar_t* path);

SIZE SizeOf(HGDIOBJ picture);

// The pixels that are not exactly white. Null if memory is short.
UniqueGdi RegionFromImage(HGDIOBJ picture);

}  // namespace tarvik
