#pragma once

#include <windows.h>

#include "control/view/input_queue.h"

namespace tarvik {

// Keyboard messages of a window, sent to a page: keys as keys, characters as text, composed ones included.
class KeyboardInput {
  public:
    KeyboardInput(HWND window, InputQueue& queue, PageSide& page)
        : window_(window), queue_(queue), page_(page) {}

    // False if it is no keyboard message, or one that the system must see (Alt+F4, Alt+Space).
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnKey(UINT virtualKey, LPARAM lParam, bool down);
    void OnCharacter(wchar_t character, LPARAM lParam);

    HWND window_;
    InputQueue& queue_;
    PageSide& page_;
    wchar_t highSurrogate_ = 0;
};

}  // namespace tarvik
