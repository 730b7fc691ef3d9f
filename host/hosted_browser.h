#pragma once

#include <exdisp.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// The browser control in a window that hosts one, or null. The thread of the window.
ComPtr<IWebBrowser2> BrowserIn(HWND window);

// The document of that control, or null.
ComPtr<IDispatch> DocumentIn(HWND window);

}  // namespace tarvik
