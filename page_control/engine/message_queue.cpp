#include "page_control/engine/message_queue.h"

#include <objbase.h>

namespace tarvik {

MessageQueue::MessageQueue(std::function<void()> onMessages)
    : onMessages_(std::move(onMessages)),
      arrived_(CreateEventW(nullptr, FALSE, FALSE, nullptr)),
      window_([this](UINT message, WPARAM) {
          if (message != kArrived) return;
          {
              const std::lock_guard lock(lock_);
              posted_ = false;
          }
          const auto onMessages = onMessages_;  // which may destroy the queue
          onMessages();
      }) {}

void MessageQueue::Push(Message message) {
    const std::lock_guard lock(lock_);
    messages_.push_back(std::move(message));
    if (waits_ > 0) SetEvent(arrived_.Get());
    PostArrival();
}

// A foreign message loop may discard the message, so it is posted again after a while.
void MessageQueue::PostArrival() {
    constexpr ULONGLONG kRepostInterval = 200;
    const ULONGLONG now = GetTickCount64();
    if (posted_ && now - postedAt_ < kRepostInterval) return;
    posted_ = true;
    postedAt_ = now;
    PostMessageW(window_.Get(), kArrived, 0, 0);
}

bool MessageQueue::Pop(Message* message) {
    const std::lock_guard lock(lock_);
    if (messages_.empty()) return false;
    *message = std::move(messages_.front());
    messages_.pop_front();
    // The handler may run a message loop of its own, which then delivers the rest.
    if (!messages_.empty()) PostArrival();
    return true;
}

bool MessageQueue::BeginWait() {
    const std::lock_guard lock(lock_);
    if (!messages_.empty()) return false;
    ++waits_;
    return true;
}

bool MessageQueue::Wait(DWORD timeout, Service service) {
    if (!BeginWait()) return false;
    HANDLE event = arrived_.Get();
    if (service == Service::kCalls) {
        DWORD index = 0;
        const HRESULT status = CoWaitForMultipleHandles(0, timeout, 1, &event, &index);
        // A thread without COM has no calls to serve.
        if (status == CO_E_NOTINITIALIZED) WaitForSingleObject(event, timeout);
        // Wine overlooks a call that arrives while it looks for others, until it gets another message.
        if (status != S_OK) PostMessageW(window_.Get(), WM_NULL, 0, 0);
    } else {
        MsgWaitForMultipleObjectsEx(1, &event, timeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
    const std::lock_guard lock(lock_);
    --waits_;
    return true;
}

}  // namespace tarvik
