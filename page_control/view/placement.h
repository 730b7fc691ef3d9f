#pragma once

#include <windows.h>

#include <memory>

#include "page_control/engine/devtools.h"

namespace tarvik {

// Keeps the size and screen position that the engine reports to a page equal to those of a window:
// window.innerWidth, window.screenX, event.screenX and screen.width.
class Placement {
  public:
    // Before the target's first navigation; queries the engine. Throws StatusError.
    Placement(HWND window, PageTarget& target);
    ~Placement() { *alive_ = false; }
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;

    // Call before anything that depends on the position: a window gets no message when its parent moves.
    void Update();

  private:
    struct Place {
        SIZE size;
        POINT origin;
        SIZE screen;
        bool operator==(const Place& other) const;
    };
    Place Measure() const;

    HWND window_;
    PageTarget& target_;
    Json engineWindow_;
    POINT inset_ = {};  // of the page in the engine's window
    Place sent_ = {};
    bool sending_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
