#include "page_control/view/pointer_lock.h"

#include <cstdlib>

namespace tarvik {

namespace {

bool IsSame(POINT left, POINT right) {
    return left.x == right.x && left.y == right.y;
}

RECT AreaOnScreen(HWND window) {
    RECT area = {};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

POINT MiddleOf(const RECT& area) {
    return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

bool IsNearMiddle(POINT point, const RECT& area) {
    const POINT middle = MiddleOf(area);
    return std::abs(point.x - middle.x) <= (area.right - area.left) / 4 &&
           std::abs(point.y - middle.y) <= (area.bottom - area.top) / 4;
}

}  // namespace

void PointerLock::OnLock(POINT point) {
    if (GetFocus() != window_) return Release();
    if (position_) return;
    position_ = point;
    GetCursorPos(&before_);
    last_ = before_;
    SetCursor(nullptr);
    Recentre(AreaOnScreen(window_));
}

void PointerLock::OnUnlock() {
    if (!position_) return;
    position_.reset();
    ClipCursor(nullptr);
    SetCursorPos(before_.x, before_.y);
}

void PointerLock::Release() {
    OnUnlock();
    script_.Call("unlockPointer", "", [](const Json&) {});
}

// Reads the position, because a message may be older than the last return to the middle. A position that is
// skipped costs nothing: the next one includes its distance.
void PointerLock::OnMove() {
    POINT now = {};
    GetCursorPos(&now);
    if (IsSame(now, replaced_)) return;
    position_->x += now.x - last_.x;
    position_->y += now.y - last_.y;
    last_ = now;
    const RECT area = AreaOnScreen(window_);
    if (!IsNearMiddle(now, area)) Recentre(area);
}

// Not at each move, which would lose what the user moves meanwhile.
void PointerLock::Recentre(const RECT& area) {
    replaced_ = last_;
    last_ = MiddleOf(area);
    ClipCursor(&area);
    SetCursorPos(last_.x, last_.y);
}

}  // namespace tarvik
