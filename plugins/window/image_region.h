#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// A picture from a bitmap file; null if the system cannot read it.
UniqueGdi LoadPicture(const wchar_t* path);

SIZE SizeOf(HGDIOBJ picture);

// Every pixel of the picture that is not exactly white. Null if there is not enough memory.
UniqueGdi RegionFromImage(HGDIOBJ picture);

}  // namespace tarvik
