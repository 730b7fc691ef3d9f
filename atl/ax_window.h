#pragma once

#include <windows.h>
#include <unknwn.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// The window class that hosts a control.
inline constexpr const wchar_t* kAxWindowClass = L"AtlAxWin90";

// Registers the class and the two messages, once per process.
bool AtlAxWinInit();

// A window of the class returns the IUnknown of its site or of its control for these messages, with a
// reference for the sender.
UINT AtlGetHostMessage();     // WM_ATLGETHOST
UINT AtlGetControlMessage();  // WM_ATLGETCONTROL

// Null if the window has none.
ComPtr<IUnknown> AtlAxGetHost(HWND window);
ComPtr<IUnknown> AtlAxGetControl(HWND window);

}  // namespace tarvik
