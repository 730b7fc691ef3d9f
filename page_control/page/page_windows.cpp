#include "page_control/page/page_windows.h"

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kEmbedding = L"Shell Embedding";
constexpr const wchar_t* kDocumentView = L"Shell DocObject View";
constexpr const wchar_t* kServer = L"Internet Explorer_Server";

// An outer window is filled by its child, which also gets the keyboard focus.
LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND child = GetWindow(window, GW_CHILD);
    switch (message) {
        case WM_SIZE:
            if (child) MoveWindow(child, 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
            return 0;
        case WM_SETFOCUS:
            if (child) SetFocus(child);
            return 0;
        case WM_ERASEBKGND:
            return 1;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

LRESULT CALLBACK ServerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const handler = reinterpret_cast<PageWindows::Handler*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (handler && handler->HandlePageMessage(message, wParam, lParam, &result)) return result;
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeWindow(const wchar_t* className, WNDPROC procedure, HWND parent, const RECT& rectangle) {
    WNDCLASSEXW description = {sizeof description};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = className;
    RegisterClassExW(&description);  // fails for a second control, which shares the class
    const HWND window =
        CreateWindowExW(0, className, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
                        rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                        rectangle.bottom - rectangle.top, parent, nullptr, description.hInstance, nullptr);
    return window ? window : throw StatusError(E_FAIL);
}

}  // namespace

PageWindows::PageWindows(HWND parent, const RECT& rectangle, Handler& handler)
    : outer_(MakeWindow(kEmbedding, FrameProcedure, parent, rectangle)) {
    const RECT inside = {0, 0, rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
    view_ = MakeWindow(kDocumentView, FrameProcedure, outer_.Get(), inside);
    server_ = MakeWindow(kServer, ServerProcedure, view_, inside);
    SetWindowLongPtrW(server_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&handler));
}

bool PageWindows::Show(bool visible) {
    const bool wasVisible = ShowWindow(outer_.Get(), visible ? SW_SHOWNA : SW_HIDE) != FALSE;
    return wasVisible != visible;
}

void PageWindows::Move(const RECT& rectangle) {
    SetWindowPos(outer_.Get(), nullptr, rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                 rectangle.bottom - rectangle.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tarvik
