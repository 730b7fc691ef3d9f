#pragma once

#include <windows.h>

#include <memory>

#include "control/engine/devtools.h"

namespace tarvik {

// Keeps the engine's idea of a page's size and of its place on the screen like that of a window, so that a
// page finds its own size, window.screenX, event.screenX and screen.width as they are.
class Placement {
  public:
    // Asks the engine, and so before the target's first navigation. Throws StatusError.
    Placement(HWND window, PageTarget& target);
    ~Placement() { *alive_ = false; }
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;

    // The window may have changed. Nobody is told when a window moves with its parent, so this is called
    // before all that depends on it.
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
    POINT inset_ = {};  // of the page in the engine's own window
    Place sent_ = {};
    bool sending_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
