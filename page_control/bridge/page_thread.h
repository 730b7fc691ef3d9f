#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "page_control/engine/devtools.h"

namespace tarvik {

// The script thread of a page: its state as far as the host knows it, and the delivery of messages to it.
// Script pauses on `debugger` statements: in a call of the host until a message arrives, and where the page
// itself has one.
//
//               call              paused               queued
//   kRunning ----------> kCalling --------> kAwaiting ----------> kQueued
//   kRunning <---------- kCalling <-------- kAwaiting <---------- kQueued
//           send, return          resumed               paused
//
//   kRunning --- paused ---> kStopped --- resumed ---> kRunning
//   kAwaiting, kQueued --- send, return ---> kStopped --- call ---> kAwaiting
//   kQueued --- resume sent ---> kStopped
//   kQueued --- resumed ---> kCalling
//
// A resume command ends kQueued and kStopped, but only when no other command of the host is in flight: a
// resume may overtake a message, and a page that finds no message pauses again. The commands in flight are
// counted beside the state, because they may be in flight in any state.
class PageThread : public std::enable_shared_from_this<PageThread> {
  public:
    enum class State {
        kRunning,   // runs script or is idle
        kCalling,   // has posted a call and is about to pause
        kAwaiting,  // paused in a call that awaits a message
        kQueued,    // paused in a call, with a message in its inbox
        kStopped,   // paused without awaiting a message
    };

    PageThread(PageTarget& target, int contextId) : target_(target), contextId_(contextId) {}

    // At the document's start: compiles the script that Send needs to resume a page in order.
    void CompileUnreachableScript();

    // Evaluates an expression that delivers a message, and resumes a page that awaits one. `onOutcome`
    // receives the result, empty if the page cannot be reached. It is not called if the page has queued the
    // message.
    using TextHandler = std::function<void(std::string_view text)>;
    void Send(std::string expression, TextHandler onOutcome);

    // Calls a function once the engine has replied to a resume command.
    void OnNextResume(std::function<void()> handler) { onResume_ = std::move(handler); }

    // Posts of the page.
    void OnCall() { Apply(Event::kCall); }
    void OnResult(bool awaitsMessage) { Apply(awaitsMessage ? Event::kCall : Event::kReturn); }
    void OnUnloading() { isUnloading_ = true; }

    // Events of the engine.
    void OnPaused();
    void OnResumed() { Apply(Event::kResumed); }

    // Sends no command from here on.
    void End() { ended_ = true; }

    State CurrentState() const { return state_; }

    // The engine no longer pauses the page, because another document is about to replace it.
    bool IsUnloading() const { return isUnloading_; }

  private:
    enum class Event {
        kCall,     // the page posts a call, or a result after which it awaits a message
        kReturn,   // the page posts a result after which it continues
        kSend,     // the host sends a message
        kResume,   // the host sends a resume command
        kQueued,   // the page has put a message in its inbox
        kPaused,   // the engine has paused the page
        kResumed,  // the engine has resumed the page, or replied to a resume command
    };
    static constexpr size_t kStates = 5;
    static constexpr size_t kEvents = 7;

    void Apply(Event event);
    bool AwaitsMessage() const {
        return state_ == State::kCalling || state_ == State::kAwaiting || state_ == State::kQueued;
    }
    void Resume();
    void SendResume(std::string_view method, Parameters params);
    void ResumeIfNeeded();

    PageTarget& target_;
    const int contextId_;
    std::string unreachableScript_;  // its id, once it is known
    State state_ = State::kRunning;
    int evaluations_ = 0;       // in flight, with a message that the page awaited
    bool resuming_ = false;     // a resume command is in flight
    bool isUnloading_ = false;  // reported to callers; has no effect on the state
    bool ended_ = false;        // from any state
    std::function<void()> onResume_;
};

}  // namespace tarvik
