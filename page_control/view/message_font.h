#pragma once

#include <windows.h>

#include "tarvik/owners.h"

namespace tarvik {

// The system's font for messages at the scale of a window, enlarged by a factor.
UniqueGdi MessageFont(HWND window, double factor);

}  // namespace tarvik
