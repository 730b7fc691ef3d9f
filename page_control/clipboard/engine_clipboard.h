#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "page_control/clipboard/clipboard_content.h"
#include "page_control/engine/devtools.h"

namespace tarvik {

// Lets the pages of an origin read and write the clipboard by script. Other pages may not.
void AllowClipboard(DevTools& engine, const std::string& origin);

// The clipboard of a headless engine, which all its pages share and no other program sees. Only pages have
// access to it. So a hidden page with an address of its own reads and writes it: that page is not paused in a
// native call, does not lose the focus, and does not navigate. It is opened at the first use. One operation
// at a time; a handler is not called after the destruction. Main thread.
class EngineClipboard {
  public:
    explicit EngineClipboard(std::shared_ptr<DevTools> engine) : engine_(std::move(engine)) {}
    EngineClipboard(const EngineClipboard&) = delete;
    EngineClipboard& operator=(const EngineClipboard&) = delete;

    const std::shared_ptr<DevTools>& Engine() const { return engine_; }

    // The handler receives null after a failure.
    void Read(std::function<void(const ClipboardContent* content)> handler);
    void Write(const ClipboardContent& content, std::function<void(bool succeeded)> handler);

  private:
    using Handler = std::function<void(const Json* value)>;

    void Start(std::vector<std::string> expressions, Handler handler);
    void OpenPage();
    void OnPage(std::unique_ptr<PageTarget> page);
    void Navigate();
    void Evaluate();
    void Finish(const Json* value);

    // `function` unless this has been destroyed.
    template <class Function>
    auto IfAlive(Function function) {
        return [weak = std::weak_ptr(alive_), function](auto&&... arguments) {
            if (!weak.expired()) function(std::forward<decltype(arguments)>(arguments)...);
        };
    }

    const std::shared_ptr<DevTools> engine_;
    std::unique_ptr<PageTarget> page_;
    std::vector<EventRouter::Subscription> subscriptions_;
    std::vector<std::string> expressions_;  // of the operation; the last one has its value
    Handler handler_;                       // of the operation
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
