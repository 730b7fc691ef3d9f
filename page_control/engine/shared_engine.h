#pragma once

#include <future>
#include <memory>
#include <optional>
#include <string>

#include "page_control/engine/connection.h"
#include "page_control/engine/profile.h"

namespace tarvik {

// The browser engine that all page controls of a process share. The first user starts it, and it ends with
// the last reference to its connection. Main thread.
class SharedEngine : public std::enable_shared_from_this<SharedEngine> {
  public:
    explicit SharedEngine(Profile::Report report = nullptr) : report_(std::move(report)) {}

    // The filter for long waits, see DevTools; empty for none.
    void SetMessageFilter(DevTools::MessageFilter filter) { filter_ = std::move(filter); }

    // Starts the engine's program in the background, once, for the first call of Acquire.
    void Prelaunch();

    // The connection to the running engine, which is started if necessary. Throws StatusError; LastStartError
    // then explains the failure to the user.
    std::shared_ptr<DevTools> Acquire();
    const std::wstring& LastStartError() const { return lastStartError_; }

    // Reports a text to the developer of the application.
    void Report(const std::wstring& text) const {
        if (report_) report_(text);
    }

    // Ends a prelaunched engine that nothing has used and, at the program's end, one that is still running.
    void Shutdown();

  private:
    std::unique_ptr<Transport> Launch(const std::wstring& engine);
    std::shared_ptr<Connection> Start();
    std::shared_ptr<Connection> StartWithRetry();
    std::shared_ptr<Connection> StartWithNewProfile();
    std::shared_ptr<Connection> StartWithTemporaryProfile();

    const Profile::Report report_;
    DevTools::MessageFilter filter_;
    std::optional<Profile> profile_;  // of this process, once an engine is launched
    std::weak_ptr<Connection> connection_;
    std::wstring lastStartError_;
    std::future<std::unique_ptr<Transport>> prelaunched_;
};

}  // namespace tarvik
