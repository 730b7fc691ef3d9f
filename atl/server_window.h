#pragma once

#include <windows.h>

namespace tarvik {

// The window in which the browser control displays the page, three levels below `mainWindow`. Null if it does
// not exist yet.
HWND GetIEServerWnd(HWND mainWindow);

}  // namespace tarvik
