#include "page_control/view/click_counter.h"

#include <cstdlib>

namespace tarvik {

namespace {

// The metric is the width or height of a rectangle around the first point.
bool IsNear(LONG left, LONG right, int metric) {
    return std::abs(left - right) <= GetSystemMetrics(metric) / 2;
}

}  // namespace

int ClickCounter::Press(int button, POINT point, DWORD time) {
    const bool again = button == button_ && time - time_ <= GetDoubleClickTime() &&
                       IsNear(point.x, point_.x, SM_CXDOUBLECLK) && IsNear(point.y, point_.y, SM_CYDOUBLECLK);
    count_ = again ? count_ + 1 : 1;
    button_ = button;
    point_ = point;
    time_ = time;
    return count_;
}

}  // namespace tarvik
