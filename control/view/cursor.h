#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "control/view/page_side.h"

namespace tarvik {

// The pointer's shape over a page. The engine sends no word of it, so the page is asked where the pointer
// rests, not more often than eyes can tell.
class PageCursor {
  public:
    PageCursor(HWND window, PageSide& page) : window_(window), page_(page) {}
    ~PageCursor();
    PageCursor(const PageCursor&) = delete;
    PageCursor& operator=(const PageCursor&) = delete;

    // The pointer is there now, in the window; outside is (-1, -1).
    void Follow(POINT point);
    // The page may have changed under it.
    void Renew() { Follow(point_); }

    static constexpr UINT_PTR kTimer = 1;  // of the window
    void OnTimer();

    HCURSOR Current() const { return current_; }

  private:
    void Ask();
    void Show(const std::string& name);

    HWND window_;
    PageSide& page_;
    POINT point_ = {-1, -1};
    HCURSOR current_ = LoadCursorW(nullptr, IDC_ARROW);
    bool pausing_ = false;  // the timer runs
    bool wanted_ = false;
    bool asking_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
