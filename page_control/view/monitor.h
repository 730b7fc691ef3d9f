#pragma once

#include <windows.h>

namespace tarvik {

// The area of the monitor that shows most of a window, or that is nearest to it.
inline RECT MonitorOf(HWND window) {
    MONITORINFO monitor = {sizeof monitor};
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcMonitor;
}

}  // namespace tarvik
