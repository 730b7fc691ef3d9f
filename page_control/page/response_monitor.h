#pragma once

#include <windows.h>

#include <functional>
#include <memory>

#include "page_control/engine/devtools.h"

namespace tarvik {

// Finds out whether the script thread of a page responds. A page that waits in a native call does; one that
// waits for a dialog of the engine does not. While the window is on the screen, the page is queried at every
// tick of a timer; there are no ticks while the host is busy.
class ResponseMonitor {
  public:
    // The handler is called if the page does not respond for ten seconds, and when it responds again.
    using Handler = std::function<void(bool responds)>;
    ResponseMonitor(HWND window, PageTarget& target, Handler onChange);
    ~ResponseMonitor();
    ResponseMonitor(const ResponseMonitor&) = delete;
    ResponseMonitor& operator=(const ResponseMonitor&) = delete;

    void OnTimer();  // kResponseTimer

    // Starts anew, as if the page had just responded.
    void Restart();
    // A dialog of the engine is open.
    void SetDialogOpen(bool open);

    // As far as is known.
    bool IsResponding() const { return responds_; }
    // Waits up to ten seconds for a reply of the page, but not if it is known whether it responds. May be
    // destroyed meanwhile; then the result is false.
    bool Responds();

  private:
    void Query();
    void OnReply();
    void SetResponds(bool responds);

    HWND window_;
    PageTarget& target_;
    const Handler onChange_;
    int unanswered_ = 0;  // ticks
    bool responds_ = true;
    bool dialogOpen_ = false;
    unsigned long replies_ = 0;  // and restarts: a query may be lost in a navigation
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
