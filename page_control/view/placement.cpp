#include "page_control/view/placement.h"

#include <algorithm>
#include <utility>

#include "page_control/view/monitor.h"
#include "page_control/view/page_scale.h"

namespace tarvik {

namespace {

// The frame of the engine's window is above the page, except for a border of the same width on all sides.
constexpr const char* kInset =
    "[(outerWidth - innerWidth) / 2, (outerHeight - innerHeight) - (outerWidth - innerWidth) / 2]";

// Of the events for one size: no page can make the window flicker for ever.
constexpr int kMaxRepetitions = 3;

bool IsSame(SIZE left, SIZE right) {
    return left.cx == right.cx && left.cy == right.cy;
}

bool IsSame(POINT left, POINT right) {
    return left.x == right.x && left.y == right.y;
}

SIZE SizeInPage(const RECT& area, double scale) {
    return {ToPage(area.right - area.left, scale), ToPage(area.bottom - area.top, scale)};
}

}  // namespace

bool Placement::Place::operator==(const Place& other) const {
    return scale == other.scale && IsSame(size, other.size) && IsSame(screen, other.screen) &&
           IsSame(origin, other.origin) && IsSame(outer, other.outer) && IsSame(outerSize, other.outerSize);
}

Placement::Placement(HWND window, PageTarget& target, EngineWindow& engineWindow, ViewScript& script)
    : window_(window), target_(target), engineWindow_(engineWindow), script_(script) {
    const Json inset = target_.Call("Runtime.evaluate", {{"expression", kInset}, {"returnByValue", true}})
                           .at("result")
                           .at("value");
    inset_ = {inset.at(0), inset.at(1)};
    // A document has its size from the start, so it misses no event.
    newDocument_ =
        target_.Events().Subscribe<event::ContextsCleared>([this](const auto&) { OnSizeReport(true); });
    Update();
}

Placement::Place Placement::Measure() const {
    RECT area = {}, outer = {};
    GetClientRect(window_, &area);
    POINT origin = {};
    ClientToScreen(window_, &origin);
    GetWindowRect(GetAncestor(window_, GA_ROOT), &outer);
    const double scale = PageScaleOf(window_);
    return {scale,
            PageSizeOf(area, scale),
            ToPage(origin, scale),
            ToPage({outer.left, outer.top}, scale),
            SizeInPage(outer, scale),
            SizeInPage(MonitorOf(window_), scale)};
}

// One change at a time: a window that is being dragged changes faster than the page is laid out.
void Placement::Update() {
    if (sending_ || IsIconic(GetAncestor(window_, GA_ROOT))) return;
    Place place = Measure();
    if (place.size.cx <= 0 || place.size.cy <= 0) return;
    if (!IsSame(std::exchange(size_, place.size), place.size)) {
        isLarger_ = false;
        repetitions_ = 0;
    }
    place.size.cx += isLarger_;
    place.size.cy += isLarger_;
    if (place == sent_) return;
    const bool isResized = !IsSame(place.size, sent_.size);
    sent_ = place;
    engineWindow_.SetBounds({place.origin.x - inset_.x, place.origin.y - inset_.y}, place.outerSize);
    Send(isResized);
}

void Placement::Send(bool isResized) {
    sending_ = true;
    // This command rejects negative positions.
    target_.Post("Emulation.setDeviceMetricsOverride",
                 {{"width", sent_.size.cx},
                  {"height", sent_.size.cy},
                  {"deviceScaleFactor", sent_.scale},
                  {"mobile", false},
                  {"screenWidth", sent_.screen.cx},
                  {"screenHeight", sent_.screen.cy},
                  {"positionX", std::max<LONG>(0, sent_.outer.x)},
                  {"positionY", std::max<LONG>(0, sent_.outer.y)}},
                 [this, alive = alive_, isResized](const Json*) {
                     if (!*alive) return;
                     sending_ = false;
                     if (isResized) script_.Call("watchSize", "", [](const Json&) {});
                     Update();
                 });
}

void Placement::OnSizeReport(bool seen) {
    if (seen) repetitions_ = 0;
    isLarger_ = !seen && !isLarger_ && repetitions_++ < kMaxRepetitions;
    Update();
}

}  // namespace tarvik
