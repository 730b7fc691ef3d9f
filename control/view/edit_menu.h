#pragma once

#include <windows.h>

#include "control/engine/devtools.h"

namespace tarvik {

// The menu of a text field: undo, cut, copy, paste, delete, select all. Runs until it is closed.
void ShowEditMenu(HWND window, POINT screen, PageTarget& target);

}  // namespace tarvik
