#include "page_control/view/placement.h"

#include <algorithm>

namespace tarvik {

namespace {

// The frame of the engine's window is above the page, except for a border of the same width on all sides.
constexpr const char* kInset =
    "[(outerWidth - innerWidth) / 2, (outerHeight - innerHeight) - (outerWidth - innerWidth) / 2]";

bool IsSame(SIZE left, SIZE right) {
    return left.cx == right.cx && left.cy == right.cy;
}

SIZE ScreenOf(HWND window) {
    MONITORINFO monitor = {sizeof monitor};
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcMonitor;
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace

bool Placement::Place::operator==(const Place& other) const {
    return IsSame(size, other.size) && IsSame(screen, other.screen) && origin.x == other.origin.x &&
           origin.y == other.origin.y;
}

Placement::Placement(HWND window, PageTarget& target) : window_(window), target_(target) {
    DevTools& engine = target_.Engine();
    engineWindow_ =
        engine.Call("", "Browser.getWindowForTarget", {{"targetId", target_.Id()}}).at("windowId");
    const Json inset = target_.Call("Runtime.evaluate", {{"expression", kInset}, {"returnByValue", true}})
                           .at("result")
                           .at("value");
    inset_ = {inset.at(0), inset.at(1)};
    Update();
}

Placement::Place Placement::Measure() const {
    RECT area = {};
    GetClientRect(window_, &area);
    POINT origin = {};
    ClientToScreen(window_, &origin);
    return {{area.right, area.bottom}, origin, ScreenOf(window_)};
}

// One change at a time: a window that is being dragged changes faster than the page is laid out.
void Placement::Update() {
    if (sending_) return;
    const Place place = Measure();
    if (place.size.cx <= 0 || place.size.cy <= 0 || place == sent_) return;
    sent_ = place;
    sending_ = true;
    target_.Engine().Post(
        "", "Browser.setWindowBounds",
        {{"windowId", engineWindow_},
         {"bounds", {{"left", place.origin.x - inset_.x}, {"top", place.origin.y - inset_.y}}}});
    // This command rejects negative positions.
    target_.Post("Emulation.setDeviceMetricsOverride",
                 {{"width", place.size.cx},
                  {"height", place.size.cy},
                  {"deviceScaleFactor", 1},
                  {"mobile", false},
                  {"screenWidth", place.screen.cx},
                  {"screenHeight", place.screen.cy},
                  {"positionX", std::max<LONG>(0, place.origin.x)},
                  {"positionY", std::max<LONG>(0, place.origin.y)}},
                 [this, alive = alive_](const Json*) {
                     if (!*alive) return;
                     sending_ = false;
                     Update();
                 });
}

}  // namespace tarvik
