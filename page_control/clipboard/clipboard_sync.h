#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "page_control/clipboard/engine_clipboard.h"
#include "page_control/clipboard/system_clipboard.h"
#include "page_control/engine/message_window.h"

namespace tarvik {

// Connects an engine's clipboard with the system's. The engine's is left alone while it holds the same,
// because it also has formats that only pages know. Operations run one after the other. Main thread.
class ClipboardSync : public std::enable_shared_from_this<ClipboardSync> {
  public:
    // The one of this engine, which all its pages share.
    static std::shared_ptr<ClipboardSync> Of(const std::shared_ptr<DevTools>& engine);

    explicit ClipboardSync(std::shared_ptr<DevTools> engine);

    using Done = std::function<void(bool succeeded)>;

    // Before a page pastes or reads.
    void CopyToEngine(Done done);

    // After a page has begun to copy. `wait` calls its argument once the copy is over; `isKnown` is true if
    // the page has certainly copied. Otherwise a new text shows that.
    using Wait = std::function<void(std::function<void(bool isKnown)> onCopied)>;
    void CopyToSystem(Wait wait, Done done);

  private:
    using Operation = std::function<void()>;
    using Attempt = std::function<bool()>;

    void Add(Operation operation, Done done);
    void StartNext();
    void Finish(bool succeeded);
    void Try(Attempt attempt);
    void OnTimer();
    bool ReadSystem();
    void ReadEngine(bool isKnown);
    bool WriteSystem(const ClipboardContent& content);

    MessageWindow window_;  // owns the system's clipboard, and has the timer
    EngineClipboard engine_;
    DWORD sequence_ = 0;    // of the system's clipboard when both held the same
    DWORD before_ = 0;      // the same number when the page began the copy in progress
    std::string lastText_;  // what both held
    struct Pending {
        Operation operation;
        Done done;
    };
    std::deque<Pending> pending_;  // the first one is running
    bool running_ = false;
    Attempt attempt_;
    int attempts_ = 0;
};

}  // namespace tarvik
