#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "control/engine/devtools.h"
#include "control/view/picture.h"

namespace tarvik {

// The picture of a page in a window, and the way of the window's input to the page. The window belongs to the
// page control, whose procedure hands its messages over. Main thread.
class PageView {
  public:
    explicit PageView(HWND window);
    ~PageView();
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    // The target that is shown, before its first navigation; null shows the notice. Not owned: the view lets
    // go of it before it ends.
    void SetTarget(PageTarget* target);

    // A text in place of the page.
    void SetNotice(const std::wstring& text);

    // True if the message was dealt with, and `result` is its answer.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // The page waits in a native call: the last picture stays, and input to it is dropped.
    void SetParked(bool parked);

  private:
    struct Shown;  // what there is for one target

    void Paint();
    void FitPage();

    HWND window_;
    std::wstring notice_;
    Picture picture_;
    bool parked_ = false;
    std::unique_ptr<Shown> shown_;
};

}  // namespace tarvik
