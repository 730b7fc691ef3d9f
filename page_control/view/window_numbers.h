#pragma once

#include <windows.h>

// The numbers that the page control uses in the window that shows the page.
namespace tarvik {

// Of Windows 10: WM_DPICHANGED_AFTERPARENT.
inline constexpr UINT kDpiChangedAfterParent = 0x02E3;

enum PageTimer : UINT_PTR {
    kCursorTimer = 1,
    kFrameTimer,
    kErrorTimer,
    kFocusTimer,
    kResponseTimer,
    kTooltipTimer,
    kDragTimer,
    kChoiceTimer
};

// The decoder has a frame.
inline constexpr UINT kFrameMessage = WM_APP + 1;
// An input method has given a composition up, unless its result has come meanwhile.
inline constexpr UINT kCancelMessage = WM_APP + 2;

}  // namespace tarvik
