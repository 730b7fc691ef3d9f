#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "page_control/view/engine_window.h"
#include "page_control/view/input_queue.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Whether a window is on the screen, even if other windows cover it.
bool IsShown(HWND window);

// Keeps the focus and the visibility of a page equal to those of a window: document.hasFocus(),
// document.visibilityState and their events.
//
// The engine gives a page the focus at any mouse input, and takes it away only when its window is minimized,
// which also hides the page. So the engine's window of an inactive page is minimized, and a second
// session keeps the page visible: the engine does not hide a page while any session emulates its focus. The
// page has the focus if the session that was last to decide says so.
class WindowState {
  public:
    // Queries the engine. Throws StatusError.
    WindowState(HWND window, PageTarget& target, EngineWindow& engineWindow, ViewScript& script,
                InputQueue& queue);
    ~WindowState();
    WindowState(const WindowState&) = delete;
    WindowState& operator=(const WindowState&) = delete;

    // Call when the window's focus or visibility may have changed.
    void Update();

    // Call after mouse input, which gives the page the focus even if the window is inactive. Soon after the
    // last one the page loses it again.
    void OnMouse();
    void OnTimer();

    // Calls a function when the window is active and the page has that state.
    void WhenActive(std::function<void()> task);

  private:
    // A window that has never been shown is inactive, not hidden: many pages draw before they show it.
    enum class State { kInactive, kActive, kHidden };
    State Measure();
    void QueueApply();
    void Apply();
    void RunTasks();
    void EmulateFocus(const std::string& session, bool enabled, std::function<void()> next);

    HWND window_;
    PageTarget& target_;
    EngineWindow& engineWindow_;
    ViewScript& script_;
    InputQueue& queue_;
    const std::string secondSession_;
    bool wasShown_ = false;
    State requested_ = State::kInactive;
    State applied_ = State::kInactive;
    bool applying_ = false;  // a reply is pending
    std::vector<std::function<void()>> tasks_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
