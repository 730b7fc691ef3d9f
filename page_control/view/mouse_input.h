#pragma once

#include <windows.h>

#include "page_control/view/click_counter.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/pointer_lock.h"

namespace tarvik {

// The state of Shift, Ctrl, Alt and the Windows key, as DevTools names it.
int KeyModifiers();

// Forwards mouse messages of a window to a page. The pointer is captured while a button is held.
class MouseInput {
  public:
    MouseInput(HWND window, InputQueue& queue, PointerLock& lock)
        : window_(window), queue_(queue), lock_(lock) {}

    // False for other messages.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Whether the message is a press of a button, which also takes the keyboard focus.
    static bool IsPress(UINT message);

    // Whether a button whose press the page received is still down.
    bool IsHeld() const { return buttons_ != 0; }

    // Ends a press whose release the page must not get.
    void Forget();

    // The pointer's position in the window; (-1, -1) outside.
    POINT LastPoint() const { return last_; }

  private:
    struct Button {
        const char* name;
        int bit;
        UINT release;  // message
    };
    static const Button kButtons[5];
    static const Button* FindButton(UINT message, WPARAM wParam);

    void OnMove(POINT point);
    void OnPress(const Button& button, POINT point);
    void OnRelease(const Button& button, POINT point);
    void OnWheel(WPARAM wParam, LPARAM lParam, bool horizontal);
    void OnCaptureLost();
    void Send(InputQueue::DeliveryMode mode, const char* type, POINT point, const char* button, int clicks,
              Json more = Json::object());

    HWND window_;
    InputQueue& queue_;
    PointerLock& lock_;
    int buttons_ = 0;  // whose press the page received, and not the release
    POINT last_ = {-1, -1};
    bool tracking_ = false;
    ClickCounter clicks_;
};

}  // namespace tarvik
