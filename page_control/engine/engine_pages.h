#pragma once

#include <set>
#include <string>

#include "page_control/engine/devtools.h"
#include "page_control/engine/message_window.h"

namespace tarvik {

// The pages of an engine. Main thread.
class EnginePages {
  public:
    explicit EnginePages(DevTools& engine);

    // Finds the page that the engine has started with, and listens to the events of targets. Throws
    // StatusError.
    void Start();

    // See DevTools.
    const std::string& UserAgent() const { return userAgent_; }
    std::string Open();
    void Open(DevTools::OpenHandler handler);
    void Close(const std::string& id);

  private:
    static constexpr UINT_PTR kCloseTimer = 1;

    void OnOpened(const std::string& id);
    void CloseUnclaimed();
    void RetryClose();
    void SendClose(const std::string& id);

    DevTools& engine_;
    std::string userAgent_;
    std::string firstPage_;            // the engine's first page, until it is used
    std::set<std::string> pages_;      // opened here
    std::set<std::string> closing_;    // being closed, but not destroyed yet
    std::set<std::string> unclaimed_;  // created while a page was being opened, which may be one of them
    int opening_ = 0;
    EventRouter events_;
    EventRouter::Subscription created_;
    EventRouter::Subscription destroyed_;
    MessageWindow window_;  // of the timer
};

}  // namespace tarvik
