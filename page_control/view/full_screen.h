#pragma once

#include <windows.h>

#include <optional>

namespace tarvik {

// Lets the top-level window around a child window fill its monitor, without frame and menu, and restores it.
class FullScreen {
  public:
    explicit FullScreen(HWND child) : child_(child) {}
    ~FullScreen() { Leave(); }
    FullScreen(const FullScreen&) = delete;
    FullScreen& operator=(const FullScreen&) = delete;

    void Enter();
    void Leave();

  private:
    struct Root {
        HWND window;
        LONG_PTR style;
        LONG_PTR extendedStyle;
        HMENU menu;
        WINDOWPLACEMENT placement;
    };

    HWND child_;
    std::optional<Root> before_;
};

}  // namespace tarvik
