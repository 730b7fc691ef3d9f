#pragma once

#include <windows.h>

#include <memory>

#include "control/engine/devtools.h"

namespace tarvik {

// The picture of a page and the way of its input: paints the screencast of a target into a window, and sends
// the window's mouse, wheel, keyboard and text to the page. The window belongs to the page control, whose
// procedure hands its messages over.
class PageView {
  public:
    // `notice` paints a text in place of the page: the engine is missing, or has crashed.
    static std::unique_ptr<PageView> Create(HWND window);
    virtual ~PageView() = default;

    // The target whose picture is shown; null shows the last notice, or nothing. Not owned.
    virtual void SetTarget(PageTarget* target) = 0;
    virtual void SetNotice(const std::wstring& text) = 0;

    // True if the message was dealt with and `result` is its answer: WM_PAINT, WM_ERASEBKGND, WM_SIZE,
    // WM_SHOWWINDOW, WM_SETCURSOR, mouse, wheel, WM_KEYDOWN to WM_SYSCHAR, focus, WM_IME_*,
    // WM_CAPTURECHANGED.
    virtual bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) = 0;

    // The page waits in a native call: the last picture stays, and input to it is dropped.
    virtual void SetParked(bool parked) = 0;
};

}  // namespace tarvik
