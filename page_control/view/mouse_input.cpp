#include "page_control/view/mouse_input.h"

#include <windowsx.h>

#include <algorithm>
#include <iterator>

#include "page_control/view/page_scale.h"
#include "page_control/view/window_state.h"

namespace tarvik {

namespace {

// As in Chromium: three lines per notch, the default, scroll 100 pixels.
constexpr double kPixelsPerLine = 100.0 / 3;
constexpr double kPressure = 0.5;  // of a held button: PointerEvent.pressure

POINT PointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

double PixelsPerNotch(HWND window, bool horizontal) {
    UINT lines = 3;
    SystemParametersInfoW(horizontal ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines != WHEEL_PAGESCROLL) return lines * kPixelsPerLine;
    RECT area = {};
    GetClientRect(window, &area);
    return (horizontal ? area.right : area.bottom) / PageScaleOf(window);
}

}  // namespace

int KeyModifiers() {
    const auto held = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
    return held(VK_MENU, 1) | held(VK_CONTROL, 2) | held(VK_LWIN, 4) | held(VK_RWIN, 4) | held(VK_SHIFT, 8);
}

// A move names the first of these that is held.
constexpr MouseInput::Button MouseInput::kButtons[] = {
    {"left", 1, WM_LBUTTONUP}, {"right", 2, WM_RBUTTONUP},    {"middle", 4, WM_MBUTTONUP},
    {"back", 8, WM_XBUTTONUP}, {"forward", 16, WM_XBUTTONUP},
};

// The messages of a button are consecutive numbers: press, release, double click.
const MouseInput::Button* MouseInput::FindButton(UINT message, WPARAM wParam) {
    for (const Button& button : kButtons) {
        if (message < button.release - 1 || message > button.release + 1) continue;
        const bool isForward = GET_XBUTTON_WPARAM(wParam) == XBUTTON2;
        if (button.release != WM_XBUTTONUP || isForward == (button.bit == 16)) return &button;
    }
    return nullptr;
}

bool MouseInput::IsPress(UINT message) {
    const auto presses = [message](const Button& button) {
        return message == button.release - 1 || message == button.release + 1;
    };
    return std::any_of(std::begin(kButtons), std::end(kButtons), presses);
}

bool MouseInput::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (const Button* const button = FindButton(message, wParam)) {
        const bool isRelease = message == button->release;
        isRelease ? OnRelease(*button, PointOf(lParam)) : OnPress(*button, PointOf(lParam));
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
            // A drag continues outside of the window, where Wine sends this message too.
            if (!buttons_) OnMove(kOutside);
            return true;
        case WM_CAPTURECHANGED:
            OnCaptureLost();
            return true;
        default:
            return false;
    }
}

void MouseInput::OnMove(POINT point) {
    if (lock_.Position()) {
        lock_.OnMove();
        point = *lock_.Position();
    }
    if (!tracking_ && point.x >= 0) {
        TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, window_, 0};
        tracking_ = TrackMouseEvent(&track) != FALSE;
    }
    if ((point.x == last_.x && point.y == last_.y) || !IsShown(window_)) return;
    last_ = point;
    const Button* const held = std::find_if(std::begin(kButtons), std::end(kButtons),
                                            [&](const Button& button) { return buttons_ & button.bit; });
    Send(InputQueue::DeliveryMode::kCoalesce, "mouseMoved", point,
         held == std::end(kButtons) ? "none" : held->name, 0);
}

void MouseInput::OnPress(const Button& button, POINT point) {
    SetCapture(window_);
    last_ = point;
    buttons_ |= button.bit;
    const auto time = static_cast<DWORD>(GetMessageTime());
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "mousePressed", point, button.name,
         clicks_.Press(button.bit, point, time));
}

// Ignores a button that was pressed elsewhere, or whose release the page received when the capture was lost.
void MouseInput::OnRelease(const Button& button, POINT point) {
    if (!(buttons_ & button.bit)) return;
    last_ = point;
    buttons_ &= ~button.bit;
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "mouseReleased", point, button.name, clicks_.Last());
    if (!buttons_ && GetCapture() == window_) ReleaseCapture();
}

// A menu or the dragging of the window takes the capture while a button is down, so the release arrives
// elsewhere. A release outside of the page ends a drag without a click.
void MouseInput::OnCaptureLost() {
    for (const Button& button : kButtons)
        OnRelease(button, kOutside);
}

void MouseInput::Forget() {
    buttons_ = 0;
    clicks_ = {};
    if (GetCapture() == window_) ReleaseCapture();
}

void MouseInput::OnWheel(WPARAM wParam, LPARAM lParam, bool horizontal) {
    // Both messages carry a screen position, except that Wine's horizontal one is relative to the window.
    POINT point = PointOf(horizontal ? static_cast<LPARAM>(GetMessagePos()) : lParam);
    ScreenToClient(window_, &point);
    const double distance =
        GET_WHEEL_DELTA_WPARAM(wParam) * PixelsPerNotch(window_, horizontal) / WHEEL_DELTA;
    // Windows counts upwards, pages downwards. To the right both agree.
    Send(InputQueue::DeliveryMode::kFireAndForget, "mouseWheel", point, "none", 0,
         {{"deltaX", horizontal ? distance : 0.0}, {"deltaY", horizontal ? 0.0 : -distance}});
}

void MouseInput::Send(InputQueue::DeliveryMode mode, const char* type, POINT point, const char* button,
                      int clicks, Json more) {
    point = lock_.Position().value_or(point);
    const double scale = PageScaleOf(window_);
    more.update({{"type", type},
                 {"x", point.x / scale},
                 {"y", point.y / scale},
                 {"button", button},
                 {"buttons", buttons_},
                 {"force", buttons_ ? kPressure : 0},
                 {"clickCount", clicks},
                 {"modifiers", KeyModifiers()}});
    queue_.Add(mode, "Input.dispatchMouseEvent", std::move(more));
}

}  // namespace tarvik
