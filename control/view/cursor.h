#pragma once

#include <windows.h>

#include <memory>

#include "control/engine/devtools.h"

namespace tarvik {

// The pointer's shape over a page. The engine sends no word of it, so the page is asked where the pointer
// rests, one question at a time.
class PageCursor {
  public:
    PageCursor(HWND window, PageTarget& target) : window_(window), target_(target) {}
    ~PageCursor() { *alive_ = false; }
    PageCursor(const PageCursor&) = delete;
    PageCursor& operator=(const PageCursor&) = delete;

    // The pointer is there now.
    void Ask(POINT point);
    void Reset() { asking_ = false; }

    HCURSOR Current() const { return current_; }

  private:
    HWND window_;
    PageTarget& target_;
    HCURSOR current_ = LoadCursorW(nullptr, IDC_ARROW);
    bool asking_ = false;
    ULONGLONG lastAsked_ = 0;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
