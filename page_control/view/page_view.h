#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "page_control/drag/drop_target.h"
#include "page_control/engine/devtools.h"
#include "page_control/view/field_pickers.h"
#include "page_control/view/frame_buffer.h"
#include "page_control/view/notice.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Shows a page in a window and forwards the window's input to the page. The window belongs to
// the page control, whose procedure passes its messages on. Main thread.
class PageView {
  public:
    struct Options {
        bool textIsSelectable = true;  // by the mouse
        // The page requests a window with this address.
        std::function<void(const std::wstring& url)> onNewWindow;
        // The user is to choose a value for a field.
        FieldPickers::DialogHandler onPicker;
    };
    PageView(HWND window, Options options);
    ~PageView();
    PageView(const PageView&) = delete;
    PageView& operator=(const PageView&) = delete;

    // Sets the target to show, before its first navigation; null for none. It lives until a handler of its
    // events that is running has returned. Throws StatusError.
    void SetTarget(std::shared_ptr<PageTarget> target);

    // Shown in place of the page, which gets no input meanwhile.
    Notice& GetNotice() { return notice_; }

    // True if the message was handled; then `result` is its return value.
    bool HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);

    // Whether the page is in a native call. Its input waits meanwhile.
    void SetInNativeCall(bool inCall);

    // Whether a mouse button whose press the page received is still down.
    bool IsMouseHeld() const;

    // Receives what is dragged over the page; null without one.
    DropReceiver* Drops() const;

    // Calls a function when the window is active and the page has that state; never if the target ends first.
    void WhenActive(std::function<void()> task);

    // Opens the menu of a text field, after a query of the page's selection.
    void OpenEditMenu(POINT screen);

  private:
    struct TargetView;  // what exists while a target is shown

    void Paint();
    void RunEditMenu(POINT screen, bool hasSelection);
    bool HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    bool HandleTimer(UINT_PTR timer);
    bool HandleInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    bool HandlePointer(DWORD type, UINT message, WPARAM wParam);
    void OnPageEvent(const ViewScript::PageEvent& event);
    void OnWindowChange();

    HWND window_;
    const Options options_;
    Notice notice_;
    FrameBuffer frameBuffer_;
    std::shared_ptr<TargetView> targetView_;
};

}  // namespace tarvik
