#pragma once

#include <windows.h>
#include <oaidl.h>

namespace TVK {

enum MenuType : int {
    kPopupMenu = 0,   // shown at a point
    kTrayMenu = 1,    // the same, opened from a tray icon
    kWindowMenu = 2,  // the menu bar of a window
};

// The native side of a script menu object: by it a window shows a menu and passes commands on, and a menu
// reaches its submenus. Main thread only.
MIDL_INTERFACE("6CA55863-199D-4ED3-BF7F-E0E3E0AEE56D")
IMenu : public IDispatch {
  public:
    // Makes the native menu, a menu bar for kWindowMenu, or tells the system's error. Called once, by the
    // maker of the object. `serverWindow` is the page's, from which points count and which gets the messages
    // of a menu that is shown; `mainWindow` is the top-level one. Both stay the caller's.
    STDMETHOD(Init)(HWND serverWindow, HWND mainWindow, int menuType) = 0;
    // Stays the object's own; it ends with the object. Null before Init.
    STDMETHOD_(HMENU, GetMenu)() = 0;
    // Runs the item's function, which may let go of the menu: the caller holds a reference. 0 if the command
    // was this menu's or a submenu's, 1 if it was not; no failure of the function is told.
    STDMETHOD_(int, Exec)(UINT commandId) = 0;
};

}  // namespace TVK

#ifdef __CRT_UUID_DECL  // compilers that cannot read the id from the declaration
__CRT_UUID_DECL(TVK::IMenu, 0x6CA55863, 0x199D, 0x4ED3, 0xBF, 0x7F, 0xE0, 0xE3, 0xE0, 0xAE, 0xE5, 0x6D)
#endif
