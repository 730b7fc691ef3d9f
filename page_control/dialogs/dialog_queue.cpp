#include "page_control/dialogs/dialog_queue.h"

#include <utility>

#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr UINT kRetryInterval = 15;  // milliseconds

}  // namespace

DialogQueue::DialogQueue(std::shared_ptr<DevTools> engine)
    : engine_(std::move(engine)), window_([this](UINT message, WPARAM timer) {
          if (message == kNext || (message == WM_TIMER && timer == kTimer)) ShowNext();
      }) {}

void DialogQueue::Add(std::function<void()> show) {
    waiting_.push_back(std::move(show));
    PostMessageW(window_.Get(), kNext, 0, 0);
}

void DialogQueue::ShowNext() {
    KillTimer(window_.Get(), kTimer);
    if (showing_ || waiting_.empty()) return;
    if (engine_->IsWaiting()) {
        SetTimer(window_.Get(), kTimer, kRetryInterval, nullptr);
        return;
    }
    const auto show = std::move(waiting_.front());
    waiting_.pop_front();
    showing_ = true;
    const std::weak_ptr<bool> alive = alive_;
    (void)Guard(show);
    if (alive.expired()) return;
    showing_ = false;
    if (!waiting_.empty()) PostMessageW(window_.Get(), kNext, 0, 0);
}

}  // namespace tarvik
