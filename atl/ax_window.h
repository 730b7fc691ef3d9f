#pragma once

#include <windows.h>
#include <unknwn.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// The class of windows that host a control.
inline constexpr const wchar_t* kAxWindowClass = L"AtlAxWin90";

// Registers the class and the two messages, once per process.
bool AtlAxWinInit();

// A window of the class answers these messages with the IUnknown of its site or of its control, and with a
// reference for the caller.
UINT AtlGetHostMessage();     // WM_ATLGETHOST
UINT AtlGetControlMessage();  // WM_ATLGETCONTROL

// Null if the window has none.
ComPtr<IUnknown> AtlAxGetHost(HWND window);
ComPtr<IUnknown> AtlAxGetControl(HWND window);

}  // namespace tarvik
