#pragma once

#include <windows.h>

namespace tarvik {

// Replaces the menu bar of a window; null or an invalid menu removes it. The previous menu is not destroyed.
void SetMenuBar(HWND window, HMENU menu);

}  // namespace tarvik
