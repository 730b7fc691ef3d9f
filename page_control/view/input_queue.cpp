#include "page_control/view/input_queue.h"

#include <utility>

namespace tarvik {

namespace {

// Milliseconds. After the first one either no reply will come or the page is busy; then the engine keeps the
// order.
constexpr ULONGLONG kReplyTimeout = 5000;
constexpr ULONGLONG kRetryTimeout = 10'000;

}  // namespace

InputQueue::InputQueue(PageTarget& target, ViewScript& script) : target_(target), script_(script) {
    EventRouter& events = target_.Events();
    subscriptions_ = {
        events.Subscribe<event::Paused>([this](const auto&) { OnPaused(); }),
        events.Subscribe<event::Resumed>([this](const auto&) { OnResumed(); }),
        events.Subscribe<event::ContextsCleared>([this](const auto&) { OnNewDocument(); }),
    };
}

void InputQueue::Add(DeliveryMode mode, const char* method, Parameters parameters, std::vector<Json> retry) {
    Add({mode, method, std::move(parameters).Take(), nullptr, std::move(retry)});
}

void InputQueue::Add(Input input) {
    const bool waits = current_ || coalescedPending_;
    if (waits && !IsPaused() && GetTickCount64() - sentAt_ > kReplyTimeout) Finish();
    const bool replaces = input.mode == DeliveryMode::kCoalesce && !waiting_.empty() &&
                          waiting_.back().mode == DeliveryMode::kCoalesce;
    if (replaces) waiting_.pop_back();
    waiting_.push_back(std::move(input));
    Advance();
}

void InputQueue::SetInNativeCall(bool inCall) {
    pauses_ += inCall;
    inNativeCall_ = inCall;
    Advance();
}

void InputQueue::OnPaused() {
    ++pauses_;
    paused_ = true;
}

void InputQueue::OnResumed() {
    paused_ = false;
    Advance();
}

// Input that was sent to the old document may be lost with it, and its reply too.
void InputQueue::OnNewDocument() {
    inNativeCall_ = paused_ = false;
    received_ = nullptr;
    const bool isUnsent = current_ && current_->mode != DeliveryMode::kAwaitReply && !current_->since;
    isUnsent ? Repeat() : Finish();
}

void InputQueue::Advance() {
    while (!waiting_.empty() && !current_ && !IsPaused()) {
        if (coalescedPending_ && waiting_.size() == 1 && waiting_.front().mode == DeliveryMode::kCoalesce)
            return;
        Input next = std::move(waiting_.front());
        waiting_.pop_front();
        Start(std::move(next));
    }
}

void InputQueue::Start(Input input) {
    sentAt_ = GetTickCount64();
    switch (input.mode) {
        case DeliveryMode::kCoalesce:
            coalescedPending_ = true;
            return Post(input, &InputQueue::OnCoalescedReply);
        case DeliveryMode::kFireAndForget:
            return Post(input, nullptr);
        default:
            current_ = std::move(input);
            if (current_->task) return RunTask(current_->task);
            if (current_->mode == DeliveryMode::kAwaitReply || !received_.is_null())
                return SendCurrent(received_);
            QueryReceipt(&InputQueue::SendCurrent);
    }
}

void InputQueue::Post(const Input& input, Step next) {
    target_.Post(input.method, input.parameters, [this, alive = alive_, round = round_, next](const Json*) {
        if (*alive && round == round_ && next) (this->*next)(Json());
    });
}

void InputQueue::RunTask(const Task& task) {
    task([this, alive = alive_, round = round_] {
        if (*alive && round == round_) Finish();
    });
}

void InputQueue::QueryReceipt(Step next) {
    script_.Call("receipt", current_->mode == DeliveryMode::kAwaitTextReceipt ? "true" : "false",
                 [this, alive = alive_, round = round_, next](const Json& received) {
                     if (*alive && round == round_) (this->*next)(received);
                 });
}

void InputQueue::OnCoalescedReply(const Json&) {
    coalescedPending_ = false;
    Advance();
}

void InputQueue::SendCurrent(const Json& receivedBefore) {
    received_ = receivedBefore;
    if (IsPaused()) return Repeat();
    if (!current_->since) current_->since = GetTickCount64();
    pausesBefore_ = pauses_;
    Post(*current_, &InputQueue::OnReply);
}

void InputQueue::OnReply(const Json&) {
    if (current_->mode == DeliveryMode::kAwaitReply) return Finish();
    QueryReceipt(&InputQueue::OnReceipt);
}

void InputQueue::OnReceipt(const Json& received) {
    const bool lost = received.is_number() && received == received_ && pauses_ != pausesBefore_;
    if (!received.is_null()) received_ = received;
    if (lost && GetTickCount64() - current_->since < kRetryTimeout) return Repeat();
    Finish();
}

void InputQueue::Repeat() {
    Input input = std::move(*current_);
    std::vector<Json> before = input.since ? input.retry : std::vector<Json>();
    if (!before.empty()) {
        input.parameters = std::move(before.back());
        before.pop_back();
        received_ = nullptr;  // it also counts what is sent before
    }
    const char* const method = input.method;
    waiting_.push_front(std::move(input));
    for (; !before.empty(); before.pop_back())
        waiting_.push_front({DeliveryMode::kAwaitReply, method, before.back(), nullptr});
    Finish();
}

void InputQueue::Finish() {
    ++round_;
    coalescedPending_ = false;
    current_.reset();
    Advance();
}

}  // namespace tarvik
