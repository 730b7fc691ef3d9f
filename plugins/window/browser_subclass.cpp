#include "plugins/window/browser_subclass.h"

namespace tarvik {

namespace {

constexpr int kBorderWidth = 6;  // pixels

// The low bits of SC_SIZE number the edges from 1 on, in the order from HTLEFT to HTBOTTOMRIGHT.
WPARAM SizeCommand(LRESULT hit) {
    const bool isEdge = hit >= HTLEFT && hit <= HTBOTTOMRIGHT;
    return SC_SIZE + (isEdge ? static_cast<WPARAM>(hit - HTLEFT + 1) : 0);
}

LRESULT HitCodeAt(HWND window, LPARAM screen) {
    POINT point = {static_cast<short>(LOWORD(screen)), static_cast<short>(HIWORD(screen))};
    ScreenToClient(window, &point);
    RECT client = {};
    GetClientRect(window, &client);
    return HitCode(client, point);
}

}  // namespace

LRESULT HitCode(const RECT& client, POINT point) {
    const bool left = point.x <= client.left + kBorderWidth;
    const bool right = point.x >= client.right - kBorderWidth;
    const bool top = point.y <= client.top + kBorderWidth;
    const bool bottom = point.y >= client.bottom - kBorderWidth;
    if (left && top) return HTTOPLEFT;
    if (left && bottom) return HTBOTTOMLEFT;
    if (right && top) return HTTOPRIGHT;
    if (right && bottom) return HTBOTTOMRIGHT;
    if (left) return HTLEFT;
    if (right) return HTRIGHT;
    if (top) return HTTOP;
    return bottom ? HTBOTTOM : 0;
}

bool CBrowserSubclassWindow::Attach(HWND serverWindow, HWND mainWindow, IUnknown* owner) {
    mainWindow_ = mainWindow;
    return SubclassWindow(serverWindow, owner);
}

bool CBrowserSubclassWindow::ProcessWindowMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
    if (!sizing_ || (message != WM_NCHITTEST && message != WM_NCLBUTTONDOWN)) return false;
    const LRESULT hit = HitCodeAt(Window(), lParam);
    if (message == WM_NCHITTEST) {
        result = hit;
        return hit != 0;
    }
    PostMessageW(mainWindow_, WM_SYSCOMMAND, SizeCommand(hit), lParam);
    result = 0;
    return true;
}

}  // namespace tarvik
