#pragma once

#include <windows.h>

namespace tarvik {

// The window that the page of a browser window is drawn in: the control's innermost, three levels down. Null
// as long as there is none.
HWND GetIEServerWnd(HWND mainWindow);

}  // namespace tarvik
