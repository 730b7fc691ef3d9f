#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <mutex>
#include <optional>

#include "page_control/engine/devtools.h"
#include "page_control/engine/message_window.h"
#include "tarvik/owners.h"

namespace tarvik {

// Messages from the reader thread for the main thread. A wait of the main thread is woken by an event, its
// message loop by a posted message; a message may need both, because a wait serves calls from other
// apartments, which may run message loops.
class MessageQueue {
  public:
    using Message = std::optional<Json>;  // empty at the engine's end

    // `onMessages` is called in the message loop when the queue has messages.
    explicit MessageQueue(std::function<void()> onMessages);

    // Any thread.
    void Push(Message message);

    // Main thread. False if the queue is empty.
    bool Pop(Message* message);

    // Which other messages a wait serves.
    enum class Service {
        kCalls,        // calls from other apartments
        kAllMessages,  // all window messages; the caller dispatches them
    };
    // Main thread. Waits until a message arrives, there is something to serve, or the time is over. False,
    // without a wait, if the queue already has messages.
    bool Wait(DWORD timeout, Service service);

  private:
    static constexpr UINT kArrived = WM_APP;

    void PostArrival();  // with the lock held
    bool BeginWait();

    const std::function<void()> onMessages_;
    std::mutex lock_;
    std::deque<Message> messages_;
    bool posted_ = false;     // a kArrived is in the window's queue
    ULONGLONG postedAt_ = 0;  // time of the last one
    int waits_ = 0;           // in progress, nested
    UniqueHandle arrived_;    // event
    MessageWindow window_;
};

}  // namespace tarvik
