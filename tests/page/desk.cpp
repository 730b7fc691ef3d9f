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

// The mouse is placed in units of 1/65535 of the screen.
INPUT MouseInput(POINT screen, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = MulDiv(screen.x, 65535, GetSystemMetrics(SM_CXSCREEN) - 1);
    input.mi.dy = MulDiv(screen.y, 65535, GetSystemMetrics(SM_CYSCREEN) - 1);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | flags;
    return input;
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
    INPUT inputs[] = {MouseInput(point, MOUSEEVENTF_MOVE), MouseInput(point, MOUSEEVENTF_LEFTDOWN),
                      MouseInput(point, MOUSEEVENTF_LEFTUP)};
    SendInput(static_cast<UINT>(std::size(inputs)), inputs, sizeof inputs[0]);
}

}  // namespace tarvik
