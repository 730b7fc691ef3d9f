#include "page_control/view/pen_input.h"

#include <utility>

#include "page_control/view/mouse_input.h"
#include "page_control/view/page_scale.h"

namespace tarvik {

namespace {

constexpr double kPressure = 0.5;  // of a pen that measures none

POINT InWindow(HWND window, const PenRecord& record) {
    POINT point = record.pointer.screen;
    ScreenToClient(window, &point);
    return point;
}

}  // namespace

Json PenParametersOf(const PenRecord& record) {
    const auto measured = [&record](UINT32 bit, INT32 value) { return record.mask & bit ? value : 0; };
    double force = 0;
    if (record.pointer.flags & kPointerInContact) {
        force = record.mask & PenRecord::kHasPressure
                    ? static_cast<double>(record.pressure) / PenRecord::kMaxPressure
                    : kPressure;
    }
    return Parameters{{"pointerType", "pen"},
                      {"force", force},
                      {"tiltX", measured(PenRecord::kHasTiltX, record.tiltX)},
                      {"tiltY", measured(PenRecord::kHasTiltY, record.tiltY)},
                      {"twist", measured(PenRecord::kHasRotation, static_cast<INT32>(record.rotation))}}
        .Take();
}

void PenInput::HandleMessage(UINT message, WPARAM wParam) {
    PenRecord record = {};
    const bool isKnown = SystemPointers().getPen(LOWORD(wParam), &record) != FALSE;
    switch (message) {
        case kPointerDown:
            return isKnown ? OnPress(record) : void();
        case kPointerUpdate:
            return isKnown ? OnMove(record) : void();
        case kPointerUp:
            return Release(isKnown ? InWindow(window_, record) : kOutside, record);
        case kPointerCaptureChanged:
            return Release(kOutside, record);
        case kPointerLeave:
            if (!held_.bit)
                Send(InputQueue::DeliveryMode::kCoalesce, "mouseMoved", kOutside, kNone.name, 0, record);
            return;
        default:
            return;
    }
}

// DevTools has no eraser, which presses like the tip.
void PenInput::OnPress(const PenRecord& record) {
    const bool isBarrel =
        (record.penFlags & PenRecord::kBarrel) || (record.pointer.flags & kPointerSecondButton);
    const POINT point = InWindow(window_, record);
    held_ = isBarrel ? kBarrel : kTip;
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "mousePressed", point, held_.name,
         clicks_.Press(held_.bit, point, record.pointer.time), record);
}

void PenInput::OnMove(const PenRecord& record) {
    Send(InputQueue::DeliveryMode::kCoalesce, "mouseMoved", InWindow(window_, record), held_.name, 0, record);
}

// A release outside of the page ends a press without a click.
void PenInput::Release(POINT point, const PenRecord& record) {
    const Button button = std::exchange(held_, kNone);
    if (!button.bit) return;
    Send(InputQueue::DeliveryMode::kAwaitReceipt, "mouseReleased", point, button.name, clicks_.Last(),
         record);
}

void PenInput::Send(InputQueue::DeliveryMode mode, const char* type, POINT point, const char* button,
                    int clicks, const PenRecord& record) {
    const double scale = PageScaleOf(window_);
    Json parameters = PenParametersOf(record);
    parameters.update(Parameters{
        {"type", type},
        {"x", point.x / scale},
        {"y", point.y / scale},
        {"button", button},
        {"buttons", held_.bit},
        {"clickCount", clicks},
        {"modifiers",
         KeyModifiers()}}.Take());
    queue_.Add(mode, "Input.dispatchMouseEvent", std::move(parameters));
}

}  // namespace tarvik
