#pragma once

#include <windows.h>

namespace tarvik {

// Makes a menu the bar of a window in place of the present one; null, and what is no menu, leave it without
// one. The menu that was the bar stays its owner's.
void SetMenuBar(HWND window, HMENU menu);

}  // namespace tarvik
