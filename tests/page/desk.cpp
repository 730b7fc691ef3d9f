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

// As input of a mouse: a position that is set may come after the press that follows it.
void MoveTo(POINT point) {
    const auto scaled = [](LONG at, int size) { return static_cast<DWORD>((at * 65536 + 32768) / size); };
    mouse_event(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, scaled(point.x, GetSystemMetrics(SM_CXSCREEN)),
                scaled(point.y, GetSystemMetrics(SM_CYSCREEN)), 0, 0);
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

void Drag(POINT from, POINT to) {
    constexpr int kSteps = 5;
    constexpr DWORD kPause = 60;  // a page hears of the press before the button goes up
    MoveTo(from);
    Sleep(kPause);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    Sleep(5 * kPause);
    for (int step = 1; step <= kSteps; ++step) {
        MoveTo({from.x + (to.x - from.x) * step / kSteps, from.y + (to.y - from.y) * step / kSteps});
        Sleep(kPause);
    }
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    Sleep(kPause);
}

void Click(HWND window) {
    SetForegroundWindow(GetAncestor(window, GA_ROOT));
    POINT point = Middle(window);
    ClientToScreen(window, &point);
    MoveTo(point);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

}  // namespace tarvik
