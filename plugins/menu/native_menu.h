#pragma once

#include <windows.h>

// The system's menus.
namespace tarvik {

// Whether a menu is that one or in it, at any depth.
bool IsInMenu(HMENU menu, HMENU wanted);

// Takes all items out. What they opened lives on, as it would not if the menu were destroyed with them.
void EmptyMenu(HMENU menu);

// Shows the menu at a point of the screen until something is chosen, and answers the item's id; 0 if nothing
// was. The owner is a window of this thread.
UINT TrackMenu(HMENU menu, POINT point, HWND owner);

}  // namespace tarvik
