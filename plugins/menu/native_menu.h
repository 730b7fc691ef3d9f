#pragma once

#include <windows.h>

// Operations on native menus.
namespace tarvik {

// Whether `wanted` is the menu or a submenu at any depth.
bool ContainsMenu(HMENU menu, HMENU wanted);

// Removes all items. Unlike DestroyMenu, it does not destroy their submenus.
void RemoveAllItems(HMENU menu);

// Shows the menu at a point of the screen and returns the id of the chosen item, or 0. The owner is a window
// of this thread.
UINT TrackMenu(HMENU menu, POINT point, HWND owner);

}  // namespace tarvik
