#pragma once

#include <windows.h>

#include <string>

#include "page_control/view/input_queue.h"
#include "page_control/view/page_clipboard.h"

namespace tarvik {

// Forwards keyboard messages of a window to a page: keys as keys, characters, also those that dead keys have
// accented, as text.
class KeyboardInput {
  public:
    KeyboardInput(HWND window, InputQueue& queue, PageClipboard& clipboard)
        : window_(window), queue_(queue), clipboard_(clipboard) {}

    // False for other messages, and for those that the system must process too (Alt+F4, Alt+Space).
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    void OnKey(UINT virtualKey, LPARAM lParam, bool down);
    std::string NameOf(UINT virtualKey, LPARAM lParam, bool down);
    void OnCharacter(wchar_t character, LPARAM lParam);

    HWND window_;
    InputQueue& queue_;
    PageClipboard& clipboard_;
    wchar_t highSurrogate_ = 0;
    UINT deadKey_ = 0;  // that is held
};

}  // namespace tarvik
