#include "plugins/tray/tray_subclass.h"

#include <shellapi.h>

#include <utility>

#include "tarvik/properties.h"

namespace tarvik {

namespace {

// Without the fields of later systems.
constexpr DWORD kRecordSize = 968;
static_assert(kRecordSize == FIELD_OFFSET(NOTIFYICONDATAW, hBalloonIcon));

NOTIFYICONDATAW RecordOf(HWND window) {
    NOTIFYICONDATAW record = {};
    record.cbSize = kRecordSize;
    record.hWnd = window;
    record.uID = kTrayIcon;
    return record;
}

}  // namespace

void CTraySubclassWindow::SetCallback(TrayEvent event, IDispatch* function) {
    if (!Window()) return;
    // What is replaced is let go of last: its end may come back here.
    ComPtr<IDispatch> changed(function);
    callbacks_[static_cast<size_t>(event)].Swap(changed);
}

void CTraySubclassWindow::Add() {
    NOTIFYICONDATAW record = RecordOf(Window());
    record.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    record.uCallbackMessage = kTrayMessage;
    record.hIcon = icon_.Get();
    tip_.copy(record.szTip, std::size(record.szTip) - 1);  // a longer one is cut
    if (Shell_NotifyIconW(NIM_ADD, &record)) isShown_ = true;
}

void CTraySubclassWindow::Remove() {
    NOTIFYICONDATAW record = RecordOf(Window());
    Shell_NotifyIconW(NIM_DELETE, &record);
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
        result = wParam == kTrayIcon ? 0 : -1;
        if (wParam == kTrayIcon) OnMouse(lParam);
        return true;
    }
    if (message == WM_DESTROY) {
        if (isShown_) Remove();
        return false;
    }
    // The shell has started anew, and knows no icons.
    if (message == RegisterWindowMessageW(L"TaskbarCreated")) {
        if (isShown_) Add();
        result = 0;
        return true;
    }
    return false;
}

}  // namespace tarvik
