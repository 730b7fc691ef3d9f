#pragma once

#include <windows.h>

#include <optional>

#include "page_control/view/view_script.h"

namespace tarvik {

// The pointer while a page has locked it: hidden, and near the middle of the window. The page gets its
// movements as positions without bounds.
class PointerLock {
  public:
    PointerLock(HWND window, ViewScript& script) : window_(window), script_(script) {}
    ~PointerLock() { OnUnlock(); }
    PointerLock(const PointerLock&) = delete;
    PointerLock& operator=(const PointerLock&) = delete;

    // The page has locked the pointer, which is at this point of the window, or released it.
    void OnLock(POINT point);
    void OnUnlock();

    // The user takes the pointer back: Escape, or another window gets the focus.
    void Release();

    // The pointer's position for the page; none while it is not locked.
    const std::optional<POINT>& Position() const { return position_; }

    // Call when the pointer has moved while it is locked.
    void OnMove();

  private:
    void Recentre(const RECT& area);

    HWND window_;
    ViewScript& script_;
    std::optional<POINT> position_;
    POINT before_ = {};  // the lock, on the screen
    POINT last_ = {};    // on the screen, as far as it is part of `position_`
    POINT replaced_ =
        {};  // by the middle of the window; under Wine the pointer may return there for a moment
};

}  // namespace tarvik
