#pragma once

#include <windows.h>
#include <exdisp.h>

#include "atl/ax_window.h"

namespace tarvik {

// Whether the control in a browser window has loaded its page and fired its events.
inline bool HasLoadedPage(HWND browserWindow) {
    const auto control = Query<IWebBrowser2>(AtlAxGetControl(browserWindow).Get());
    READYSTATE state = READYSTATE_UNINITIALIZED;
    if (control) control->get_ReadyState(&state);
    return state == READYSTATE_COMPLETE;
}

}  // namespace tarvik
