#include "control/view/mouse_input.h"

#include <windowsx.h>

#include <cstdlib>

namespace tarvik {

namespace {

constexpr double kPixelsPerNotch = 100;

POINT PointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

const char* HeldButton(int buttons) {
    if (buttons & 1) return "left";
    if (buttons & 2) return "right";
    return buttons & 4 ? "middle" : "none";
}

}  // namespace

int KeyModifiers() {
    const auto held = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
    return held(VK_MENU, 1) | held(VK_CONTROL, 2) | held(VK_LWIN, 4) | held(VK_RWIN, 4) | held(VK_SHIFT, 8);
}

bool MouseInput::FindButton(UINT message, WPARAM wParam, Button& button) {
    const bool second = GET_XBUTTON_WPARAM(wParam) == XBUTTON2;
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            button = {"left", 1, true};
            return true;
        case WM_LBUTTONUP:
            button = {"left", 1, false};
            return true;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
            button = {"right", 2, true};
            return true;
        case WM_RBUTTONUP:
            button = {"right", 2, false};
            return true;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK:
            button = {"middle", 4, true};
            return true;
        case WM_MBUTTONUP:
            button = {"middle", 4, false};
            return true;
        case WM_XBUTTONDOWN:
        case WM_XBUTTONDBLCLK:
            button = {second ? "forward" : "back", second ? 16 : 8, true};
            return true;
        case WM_XBUTTONUP:
            button = {second ? "forward" : "back", second ? 16 : 8, false};
            return true;
        default:
            return false;
    }
}

bool MouseInput::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (Button button; FindButton(message, wParam, button)) {
        OnButton(button, PointOf(lParam));
        return true;
    }
    switch (message) {
        case WM_MOUSEMOVE:
            OnMove(PointOf(lParam));
            return true;
        case WM_MOUSEWHEEL:
            OnWheel(wParam, lParam, false);
            return true;
        case WM_MOUSEHWHEEL:
            OnWheel(wParam, lParam, true);
            return true;
        case WM_MOUSELEAVE:
            tracking_ = false;
            OnMove({-1, -1});
            return true;
        case WM_CAPTURECHANGED:
            buttons_ = 0;
            return true;
        default:
            return false;
    }
}

void MouseInput::OnMove(POINT point) {
    if (!tracking_ && point.x >= 0) {
        TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, window_, 0};
        tracking_ = TrackMouseEvent(&track) != FALSE;
    }
    if (point.x == last_.x && point.y == last_.y) return;
    last_ = point;
    if (moving_) {
        pending_ = true;
    } else {
        SendMove();
    }
}

void MouseInput::SendMove() {
    moving_ = true;
    pending_ = false;
    Send("mouseMoved", last_, HeldButton(buttons_), 0, Json::object(), [this, alive = alive_](const Json*) {
        if (!*alive) return;
        moving_ = false;
        if (pending_) SendMove();
    });
}

void MouseInput::OnButton(const Button& button, POINT point) {
    if (pending_) SendMove();  // where the pointer was comes before what it did
    last_ = point;
    if (button.down) {
        SetFocus(window_);
        SetCapture(window_);
        buttons_ |= button.bit;
        Send("mousePressed", point, button.name, CountClicks(button, point));
        return;
    }
    buttons_ &= ~button.bit;
    Send("mouseReleased", point, button.name, clicks_ ? clicks_ : 1);
    if (!buttons_ && GetCapture() == window_) ReleaseCapture();
}

int MouseInput::CountClicks(const Button& button, POINT point) {
    const DWORD now = GetTickCount();
    const bool close = std::abs(point.x - clickPoint_.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                       std::abs(point.y - clickPoint_.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    const bool again = button.bit == clickButton_ && close && now - clickTime_ <= GetDoubleClickTime();
    clicks_ = again ? clicks_ + 1 : 1;
    clickButton_ = button.bit;
    clickPoint_ = point;
    clickTime_ = now;
    return clicks_;
}

void MouseInput::OnWheel(WPARAM wParam, LPARAM lParam, bool horizontal) {
    POINT point = PointOf(lParam);
    ScreenToClient(window_, &point);
    const double distance = GET_WHEEL_DELTA_WPARAM(wParam) * kPixelsPerNotch / WHEEL_DELTA;
    // Windows turns the wheel away from the user for more; pages count downward. To the right both agree.
    Send("mouseWheel", point, "none", 0,
         {{"deltaX", horizontal ? distance : 0.0}, {"deltaY", horizontal ? 0.0 : -distance}});
}

void MouseInput::Send(const char* type, POINT point, const char* button, int clicks, Json more,
                      DevTools::ReplyHandler onReply) {
    more.update({{"type", type},
                 {"x", point.x},
                 {"y", point.y},
                 {"button", button},
                 {"buttons", buttons_},
                 {"clickCount", clicks},
                 {"modifiers", KeyModifiers()}});
    target_.Post("Input.dispatchMouseEvent", std::move(more), std::move(onReply));
}

}  // namespace tarvik
