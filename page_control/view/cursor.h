#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "page_control/view/view_script.h"

namespace tarvik {

// The shape of the mouse pointer over a page. The engine sends no event for it, so this queries the page for
// the shape at the pointer's position, at a limited rate.
class PageCursor {
  public:
    PageCursor(HWND window, ViewScript& script) : window_(window), script_(script) {}
    ~PageCursor();
    PageCursor(const PageCursor&) = delete;
    PageCursor& operator=(const PageCursor&) = delete;

    // The pointer's position in the window; (-1, -1) outside.
    void SetPosition(POINT point);
    // The page may have changed under the pointer.
    void Refresh() { SetPosition(point_); }

    void OnTimer();  // kCursorTimer

    HCURSOR Current() const { return current_; }

  private:
    void Query();
    void Show(const std::string& name);

    HWND window_;
    ViewScript& script_;
    POINT point_ = {-1, -1};
    HCURSOR current_ = LoadCursorW(nullptr, IDC_ARROW);
    bool timerRuns_ = false;  // limits the rate: no query while it runs
    bool queryWanted_ = false;
    bool queryPending_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
