#pragma once

#include <windows.h>

#include "control/view/click_counter.h"
#include "control/view/input_queue.h"

namespace tarvik {

// The state of Shift, Ctrl, Alt and the Windows key, as DevTools names it.
int KeyModifiers();

// Mouse messages of a window, sent to a page. The pointer is captured while a button is held.
class MouseInput {
  public:
    MouseInput(HWND window, InputQueue& queue) : window_(window), queue_(queue) {}

    // False if it is no mouse message.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

    // Whether a button goes down, which also asks for the keyboard.
    static bool IsPress(UINT message);

    // A button that the page was told of is still down.
    bool IsHeld() const { return buttons_ != 0; }

    // Where the pointer is in the window; (-1, -1) when it has left.
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
    void Send(InputQueue::Care care, const char* type, POINT point, const char* button, int clicks,
              Json more = Json::object());

    HWND window_;
    InputQueue& queue_;
    int buttons_ = 0;  // that are held, as the page knows it
    POINT last_ = {-1, -1};
    bool tracking_ = false;
    ClickCounter clicks_;
};

}  // namespace tarvik
