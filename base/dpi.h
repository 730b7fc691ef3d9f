#pragma once

#include <windows.h>

namespace tarvik {

// The dots per inch of the monitor that shows most of a window.
UINT DpiOf(HWND window);

// The highest one of all monitors.
UINT HighestDpi();

}  // namespace tarvik
