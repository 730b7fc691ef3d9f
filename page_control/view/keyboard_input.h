#pragma once

#include <windows.h>

#include "page_control/view/input_queue.h"
#include "page_control/view/page_clipboard.h"

namespace tarvik {

// Forwards keyboard messages of a window to a page: keys as keys, characters, also composed ones, as text.
class KeyboardInput {
  public:
    KeyboardInput(InputQueue& queue, PageClipboard& clipboard) : queue_(queue), clipboard_(clipboard) {}

    // False for other messages, and for those that the system must process too (Alt+F4, Alt+Space).
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnKey(UINT virtualKey, LPARAM lParam, bool down);
    void OnCharacter(wchar_t character, LPARAM lParam);

    InputQueue& queue_;
    PageClipboard& clipboard_;
    wchar_t highSurrogate_ = 0;
};

}  // namespace tarvik
