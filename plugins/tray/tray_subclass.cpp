#include "plugins/tray/tray_subclass.h"

#include <shellapi.h>

#include <utility>

#include "tarvik/properties.h"

namespace tarvik {

namespace {

// The size of the structure without the fields that later versions of Windows added.
constexpr DWORD kDataSize = 968;
static_assert(kDataSize == FIELD_OFFSET(NOTIFYICONDATAW, hBalloonIcon));

NOTIFYICONDATAW IconData(HWND window) {
    NOTIFYICONDATAW data = {};
    data.cbSize = kDataSize;
    data.hWnd = window;
    data.uID = kTrayIconId;
    return data;
}

}  // namespace

void CTraySubclassWindow::SetCallback(TrayEvent event, IDispatch* function) {
    if (!Window()) return;
    // Released last: releasing a function may call back into this object.
    ComPtr<IDispatch> changed(function);
    callbacks_[static_cast<size_t>(event)].Swap(changed);
}

void CTraySubclassWindow::Add() {
    NOTIFYICONDATAW data = IconData(Window());
    data.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    data.uCallbackMessage = kTrayMessage;
    data.hIcon = icon_.Get();
    tip_.copy(data.szTip, std::size(data.szTip) - 1);  // truncates
    if (Shell_NotifyIconW(NIM_ADD, &data)) isShown_ = true;
}

void CTraySubclassWindow::Remove() {
    NOTIFYICONDATAW data = IconData(Window());
    Shell_NotifyIconW(NIM_DELETE, &data);
    isShown_ = false;
}

void CTraySubclassWindow::OnMouse(LPARAM message) const {
    switch (message) {
        case WM_LBUTTONUP:
            return Raise(TrayEvent::kClick);
        case WM_LBUTTONDBLCLK:
            return Raise(TrayEvent::kDoubleClick);
        case WM_RBUTTONUP:
            return Raise(TrayEvent::kRightClick);
        default:
            break;
    }
}

void CTraySubclassWindow::Raise(TrayEvent event) const {
    const ComPtr<IDispatch> function = callbacks_[static_cast<size_t>(event)];
    CallScriptFunction(function.Get());
}

void CTraySubclassWindow::OnFinalMessage(HWND) {
    const auto callbacks = std::exchange(callbacks_, {});
}

bool CTraySubclassWindow::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == kTrayMessage) {
        result = wParam == kTrayIconId ? 0 : -1;
        if (wParam == kTrayIconId) OnMouse(lParam);
        return true;
    }
    if (message == WM_DESTROY) {
        if (isShown_) Remove();
        return false;
    }
    // The shell has restarted and lost its icons.
    if (message == RegisterWindowMessageW(L"TaskbarCreated")) {
        if (isShown_) Add();
        result = 0;
        return true;
    }
    return false;
}

}  // namespace tarvik
