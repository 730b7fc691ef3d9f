#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "control/engine/devtools.h"
#include "control/view/picture.h"

namespace tarvik {

// The picture of a page in a window, and the way of the window's input to the page. The window belongs to the
// page control, whose procedure hands its messages over. It uses WM_APP + 1 and the timers 1 and 2. Main
// thread.
class PageView {
  public:
    struct Options {
        bool textIsSelectable = true;  // by the mouse
        // The page asks for a window with this address.
        std::function<void(const std::wstring& url)> onNewWindow;
    };
    PageView(HWND window, Options options);
    ~PageView();
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    // The target that is shown, before its first navigation; null shows the notice. Not owned: the view lets
    // go of it before it ends. Throws StatusError.
    void SetTarget(PageTarget* target);

    // A text in place of the page.
    void SetNotice(const std::wstring& text);

    // True if the message was dealt with, and `result` is its answer.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Every event of the target's session, in order; others want them too.
    void OnEvent(std::string_view method, const Json& params);

    // The page waits in a native call: the last picture stays, and input waits with it.
    void SetParked(bool parked);

    // A mouse button that the page was told of is still down.
    bool IsMouseHeld() const;

    // The menu of a text field, once the page has told what is selected.
    void ShowEditMenu(POINT screen);

  private:
    struct Shown;  // what there is for one target

    void Paint();
    void RunEditMenu(POINT screen, bool hasSelection);
    bool HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    void TellFocus();

    HWND window_;
    const Options options_;
    std::wstring notice_;
    Picture picture_;
    std::shared_ptr<Shown> shown_;
};

}  // namespace tarvik
