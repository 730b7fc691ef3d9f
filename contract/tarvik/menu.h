#pragma once

// The native interface of a script menu object. A window shows a menu and passes commands on through it, and
// a menu finds its submenus by it. Main thread only.

#include <windows.h>
#include <oaidl.h>

namespace TVK {

enum MenuType : int {
    kPopupMenu = 0,   // shown at a point
    kTrayMenu = 1,    // a popup menu that a tray icon opens
    kWindowMenu = 2,  // the menu bar of a window
};

MIDL_INTERFACE("6CA55863-199D-4ED3-BF7F-E0E3E0AEE56D")
IMenu : public IDispatch {
  public:
    // Creates the native menu: a menu bar for kWindowMenu, a popup menu for the other types. The creator of
    // the object calls it once. `serverWindow` displays the page: client coordinates refer to it, and it
    // receives the messages of the menu while the menu is shown. `mainWindow` is the top-level window. The
    // menu closes neither. Returns S_OK or the system's error.
    STDMETHOD(Init)(HWND serverWindow, HWND mainWindow, int menuType) = 0;

    // The native menu; null before Init. The object owns it and destroys it with itself.
    STDMETHOD_(HMENU, GetMenu)() = 0;

    // Calls the function of the item with this command id. Returns 0 if the item is in this menu or a
    // submenu, even if its function fails; otherwise 1. The function may release the menu, so the caller
    // holds a reference until the call returns.
    STDMETHOD_(int, Exec)(UINT commandId) = 0;
};

}  // namespace TVK

#ifdef __CRT_UUID_DECL  // compilers that cannot read the id from the declaration
__CRT_UUID_DECL(TVK::IMenu, 0x6CA55863, 0x199D, 0x4ED3, 0xBF, 0x7F, 0xE0, 0xE3, 0xE0, 0xAE, 0xE5, 0x6D)
#endif
