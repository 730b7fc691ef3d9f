#pragma once

#include <windows.h>

#include "page_control/view/input_queue.h"

namespace tarvik {

// Forwards keyboard messages of a window to a page: keys as keys, characters, also composed ones, as text.
class KeyboardInput {
  public:
    KeyboardInput(HWND window, InputQueue& queue, ViewScript& script)
        : window_(window), queue_(queue), script_(script) {}

    // False for other messages, and for those that the system must process too (Alt+F4, Alt+Space).
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnKey(UINT virtualKey, LPARAM lParam, bool down);
    void OnCharacter(wchar_t character, LPARAM lParam);

    HWND window_;
    InputQueue& queue_;
    ViewScript& script_;
    wchar_t highSurrogate_ = 0;
};

}  // namespace tarvik
