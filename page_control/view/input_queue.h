#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "page_control/engine/devtools.h"
#include "page_control/view/view_script.h"

namespace tarvik {

// Delivers input to a page in order. The engine discards input for a page whose script is paused in a native
// call, and confirms it all the same. So input waits here while the page is known to be paused. Because the
// page may pause at any moment, it is queried whether it has received what must not be lost; if it has not,
// and was paused meanwhile, the input is sent again.
class InputQueue {
  public:
    InputQueue(PageTarget& target, ViewScript& script);
    ~InputQueue() { *alive_ = false; }
    InputQueue(const InputQueue&) = delete;
    InputQueue& operator=(const InputQueue&) = delete;

    enum class DeliveryMode {
        kCoalesce,          // sent after the reply to the one before; until then a later one replaces it
        kFireAndForget,     // the next input does not wait for it
        kAwaitReply,        // the next input waits for the engine's reply
        kAwaitReceipt,      // and until the page has received it
        kAwaitTextReceipt,  // the same for the text of a key
    };
    // `retry` are the parameters of the commands that are sent if the input was lost, the last of which is
    // the input; by default, the same again.
    void Add(DeliveryMode mode, const char* method, Parameters parameters, std::vector<Json> retry = {});

    // Adds work of the host that the input after it depends on. The task calls its argument when it is done.
    using Task = std::function<void(std::function<void()> done)>;
    void AddTask(Task task) { Add({DeliveryMode::kAwaitReply, nullptr, {}, std::move(task)}); }

    // Whether the page is in a native call.
    void SetInNativeCall(bool inCall);

  private:
    struct Input {
        DeliveryMode mode;
        const char* method;
        Json parameters;
        Task task;  // in place of the method
        std::vector<Json> retry = {};
        ULONGLONG since = 0;  // time of the first attempt
    };
    using Step = void (InputQueue::*)(const Json& value);

    void Add(Input input);
    void OnPaused();
    void OnResumed();
    void OnNewDocument();
    void Advance();
    void Start(Input input);
    void Post(const Input& input, Step next);
    void RunTask(const Task& task);
    void QueryReceipt(Step next);
    void OnCoalescedReply(const Json&);
    void SendCurrent(const Json& receivedBefore);
    void OnReply(const Json&);
    void OnReceipt(const Json& received);
    void Repeat();
    void Finish();
    bool IsPaused() const { return inNativeCall_ || paused_; }

    PageTarget& target_;
    ViewScript& script_;
    std::deque<Input> waiting_;
    std::optional<Input> current_;   // the next one waits for it
    bool coalescedPending_ = false;  // the reply to a kCoalesce is pending
    bool inNativeCall_ = false;
    bool paused_ = false;  // according to the engine
    unsigned pauses_ = 0;
    unsigned pausesBefore_ = 0;  // when the current input was sent
    Json received_;              // the page's count; null if unknown
    unsigned round_ = 0;         // replies of an earlier round are stale
    ULONGLONG sentAt_ = 0;
    std::vector<EventRouter::Subscription> subscriptions_;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tarvik
