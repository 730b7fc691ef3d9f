#include "page_control/view/full_screen.h"

#include <utility>

#include "page_control/view/monitor.h"

namespace tarvik {

namespace {

constexpr LONG_PTR kFrame = WS_CAPTION | WS_THICKFRAME | WS_MAXIMIZE;
constexpr LONG_PTR kExtendedFrame =
    WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_DLGMODALFRAME | WS_EX_STATICEDGE;

UINT ShowCommand(HWND window, UINT shown) {
    if (!IsWindowVisible(window)) return SW_HIDE;
    return IsIconic(window) ? SW_SHOWMINNOACTIVE : shown;
}

}  // namespace

void FullScreen::Enter() {
    if (before_) return;
    const HWND root = GetAncestor(child_, GA_ROOT);
    before_ = {root,
               GetWindowLongPtrW(root, GWL_STYLE),
               GetWindowLongPtrW(root, GWL_EXSTYLE),
               GetMenu(root),
               {sizeof(WINDOWPLACEMENT)}};
    GetWindowPlacement(root, &before_->placement);
    const RECT monitor = MonitorOf(root);
    const Root before = *before_;  // each of these calls may run script, which leaves
    SetWindowLongPtrW(root, GWL_STYLE, before.style & ~kFrame);
    SetWindowLongPtrW(root, GWL_EXSTYLE, before.extendedStyle & ~kExtendedFrame);
    if (before.menu) SetMenu(root, nullptr);
    SetWindowPos(root, HWND_TOP, monitor.left, monitor.top, monitor.right - monitor.left,
                 monitor.bottom - monitor.top, SWP_FRAMECHANGED | SWP_NOOWNERZORDER);
}

void FullScreen::Leave() {
    auto before = std::exchange(before_, std::nullopt);
    if (!before || !IsWindow(before->window)) return;
    const HWND root = before->window;
    const LONG_PTR shown = GetWindowLongPtrW(root, GWL_STYLE) & (WS_VISIBLE | WS_MINIMIZE | WS_DISABLED);
    SetWindowLongPtrW(root, GWL_STYLE,
                      (before->style & ~(WS_VISIBLE | WS_MINIMIZE | WS_DISABLED | WS_MAXIMIZE)) | shown);
    SetWindowLongPtrW(root, GWL_EXSTYLE, before->extendedStyle);
    if (IsMenu(before->menu) && !GetMenu(root)) SetMenu(root, before->menu);
    before->placement.showCmd = ShowCommand(root, before->placement.showCmd);
    SetWindowPlacement(root, &before->placement);
    SetWindowPos(root, nullptr, 0, 0, 0, 0,
                 SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tarvik
