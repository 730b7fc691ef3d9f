#pragma once

#include <windows.h>
#include <unknwn.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// The class of windows that host a control.
inline constexpr const wchar_t* kAxWindowClass = L"AtlAxWin90";

// Registers the class and the two messages; again does nothing.
bool AtlAxWinInit();

// Sent to such a window they answer the IUnknown of the host, or of the control, with a reference for the
// caller.
UINT AtlGetHostMessage();     // WM_ATLGETHOST
UINT AtlGetControlMessage();  // WM_ATLGETCONTROL

ComPtr<IUnknown> AtlAxGetHost(HWND window);
ComPtr<IUnknown> AtlAxGetControl(HWND window);

}  // namespace tarvik
