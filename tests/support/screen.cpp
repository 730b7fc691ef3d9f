#include "tests/support/screen.h"

#include <exdisp.h>
#include <mshtml.h>

#include "tests/support/waiting.h"

namespace tarvik {

namespace {

POINT Middle(HWND window) {
    RECT area = {};
    GetClientRect(window, &area);
    return {area.right / 2, area.bottom / 2};
}

}  // namespace

HWND InnermostWindow(HWND window) {
    while (const HWND child = GetWindow(window, GW_CHILD))
        window = child;
    return window;
}

COLORREF PixelOf(HWND window, POINT point) {
    const HDC picture = GetDC(window);
    const COLORREF colour = GetPixel(picture, point.x, point.y);
    ReleaseDC(window, picture);
    return colour;
}

COLORREF PixelOnScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return PixelOf(nullptr, point);
}

bool WaitForColour(HWND window, COLORREF colour) {
    return WaitFor([&] { return PixelOnScreen(window, Middle(window)) == colour; });
}

void Click(HWND window) {
    SetForegroundWindow(GetAncestor(window, GA_ROOT));
    POINT point = Middle(window);
    ClientToScreen(window, &point);
    SetCursorPos(point.x, point.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

INPUT MouseInputOf(DWORD action, DWORD data) {
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = action;
    input.mi.mouseData = data;
    return input;
}

INPUT MoveOf(POINT screen) {
    const auto scaled = [](LONG at, int measure) { return (at * 65536 + 32768) / GetSystemMetrics(measure); };
    INPUT move = MouseInputOf(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE);
    move.mi.dx = scaled(screen.x, SM_CXSCREEN);
    move.mi.dy = scaled(screen.y, SM_CYSCREEN);
    return move;
}

ComPtr<IDispatch> ScriptOf(IUnknown* control) {
    ComPtr<IDispatch> document, script;
    Query<IWebBrowser2>(control)->get_Document(document.GetAddressOf());
    Query<IHTMLDocument2>(document.Get())->get_Script(script.GetAddressOf());
    return script;
}

}  // namespace tarvik
