#pragma once

#include <windows.h>

#include <memory>

#include "page_control/view/engine_window.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Keeps the sizes and positions that the engine reports to a page equal to those of a window and of the
// top-level window around it: window.innerWidth and event.screenX; window.outerWidth, window.screenX and
// screen.width. The page finds them in CSS pixels, and the scale as window.devicePixelRatio.
//
// A page that is in a native call reads its new size at once, but may miss the events of the change. Then the
// size changes once more, by a pixel and back.
class Placement {
  public:
    // Before the target's first navigation; queries the engine. Throws StatusError.
    Placement(HWND window, PageTarget& target, EngineWindow& engineWindow, ViewScript& script);
    ~Placement() { *alive_ = false; }
    Placement(const Placement&) = delete;
    Placement& operator=(const Placement&) = delete;

    void Update();

    // The page has seen the events of its size, or has missed one.
    void OnSizeReport(bool seen);

  private:
    // In CSS pixels.
    struct Place {
        double scale;
        SIZE size;
        POINT origin;
        POINT outer;
        SIZE outerSize;
        SIZE screen;
        bool operator==(const Place& other) const;
    };
    Place Measure() const;
    void Send(bool isResized);

    HWND window_;
    PageTarget& target_;
    EngineWindow& engineWindow_;
    ViewScript& script_;
    POINT inset_ = {};  // of the page in the engine's window
    SIZE size_ = {};    // of the window
    Place sent_ = {};
    bool sending_ = false;
    bool isLarger_ = false;  // by a pixel
    int repetitions_ = 0;
    EventRouter::Subscription newDocument_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
