#pragma once

#include <windows.h>

#include "control/engine/devtools.h"

namespace tarvik {

// Keyboard messages of a window, sent to a page: keys as keys, characters as text, composed ones included.
class KeyboardInput {
  public:
    KeyboardInput(HWND window, PageTarget& target) : window_(window), target_(target) {}

    // False if it is no keyboard message, or one that the system must see (Alt+F4, Alt+Space).
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnKey(UINT virtualKey, LPARAM lParam, bool down);
    void OnCharacter(wchar_t character);

    HWND window_;
    PageTarget& target_;
    wchar_t highSurrogate_ = 0;
};

}  // namespace tarvik
