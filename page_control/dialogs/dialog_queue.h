#pragma once

#include <deque>
#include <functional>
#include <memory>

#include "page_control/engine/devtools.h"
#include "page_control/engine/message_window.h"

namespace tarvik {

// Shows the dialogs of a page, one at a time, from the message loop while no native code waits for the
// engine: a dialog would hold up that wait. Main thread.
class DialogQueue {
  public:
    explicit DialogQueue(std::shared_ptr<DevTools> engine);

    // `show` may outlive the queue while its dialog is open.
    void Add(std::function<void()> show);

  private:
    static constexpr UINT kNext = WM_APP;
    static constexpr UINT_PTR kTimer = 1;

    void ShowNext();

    const std::shared_ptr<DevTools> engine_;
    std::deque<std::function<void()>> waiting_;
    bool showing_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
    MessageWindow window_;
};

}  // namespace tarvik
