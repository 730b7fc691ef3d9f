#pragma once

#include <windows.h>

#include "page_control/view/click_counter.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/system_pointers.h"

namespace tarvik {

// What a pen measures, as DevTools describes it.
Json PenParametersOf(const PenRecord& record);

// Forwards the pen of a window to a page, for which it is a mouse with pressure and tilt.
class PenInput {
  public:
    PenInput(HWND window, InputQueue& queue) : window_(window), queue_(queue) {}

    // For messages of pen pointers.
    void HandleMessage(UINT message, WPARAM wParam);

  private:
    struct Button {
        const char* name;
        int bit;
    };
    static constexpr Button kNone = {"none", 0}, kTip = {"left", 1}, kBarrel = {"right", 2};

    void OnPress(const PenRecord& record);
    void OnMove(const PenRecord& record);
    void Release(POINT point, const PenRecord& record);
    void Send(InputQueue::DeliveryMode mode, const char* type, POINT point, const char* button, int clicks,
              const PenRecord& record);

    HWND window_;
    InputQueue& queue_;
    Button held_ = kNone;
    ClickCounter clicks_;
};

}  // namespace tarvik
