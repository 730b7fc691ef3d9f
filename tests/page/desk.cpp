#include "tests/page/desk.h"

#include "base/owners.h"
#include "tests/page/program.h"

namespace tarvik {

namespace {

POINT Middle(HWND window) {
    RECT area = {};
    GetClientRect(window, &area);
    return {area.right / 2, area.bottom / 2};
}

}  // namespace

COLORREF ColourAt(HWND window, POINT point) {
    ClientToScreen(window, &point);
    const HDC screen = GetDC(nullptr);
    const COLORREF colour = GetPixel(screen, point.x, point.y);
    ReleaseDC(nullptr, screen);
    return colour;
}

bool WaitForColour(HWND window, COLORREF colour) {
    return WaitFor([&] { return ColourAt(window, Middle(window)) == colour; });
}

void Click(HWND window) {
    SetForegroundWindow(GetAncestor(window, GA_ROOT));
    POINT point = Middle(window);
    ClientToScreen(window, &point);
    SetCursorPos(point.x, point.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

}  // namespace tarvik
