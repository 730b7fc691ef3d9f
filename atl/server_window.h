#pragma once

#include <windows.h>

namespace tarvik {

// The window that displays the page of a browser window: the innermost window of the control, three levels
// below `mainWindow`. Null if it does not exist yet.
HWND GetIEServerWnd(HWND mainWindow);

}  // namespace tarvik
