#include "page_control/engine/message_window.h"

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kWindowClass = L"TarvikDevTools";

}  // namespace

MessageWindow::MessageWindow(Handler handler) : handler_(std::move(handler)) {
    WNDCLASSEXW description = {sizeof description};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kWindowClass;
    RegisterClassExW(&description);  // fails for the second window
    window_.Reset(CreateWindowExW(0, kWindowClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  description.hInstance, nullptr));
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

MessageWindow::~MessageWindow() {
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, 0);
}

LRESULT CALLBACK MessageWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self) {
        const Handler handler = self->handler_;  // which may destroy the window
        (void)Guard([&] { handler(message, wParam); });
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tarvik
