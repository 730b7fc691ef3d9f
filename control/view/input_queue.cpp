#include "control/view/input_queue.h"

#include <utility>

namespace tarvik {

namespace {

// Milliseconds. What has no answer by then gets none, or the page computes: then the engine keeps the order.
constexpr ULONGLONG kPatience = 5000;
// A page that misses something for so long does nothing but native calls.
constexpr ULONGLONG kPersistence = 10'000;

}  // namespace

void InputQueue::Add(Care care, const char* method, Json parameters) {
    const bool waits = current_ || moving_;
    if (waits && !StandsStill() && GetTickCount64() - sentAt_ > kPatience) Finish();
    const bool replaces = care == Care::kLatest && !waiting_.empty() && waiting_.back().care == Care::kLatest;
    if (replaces) waiting_.pop_back();
    waiting_.push_back({care, method, std::move(parameters)});
    Advance();
}

void InputQueue::SetParked(bool parked) {
    stops_ += parked;
    parked_ = parked;
    Advance();
}

void InputQueue::OnEvent(std::string_view method) {
    if (method == "Debugger.paused") {
        ++stops_;
        stopped_ = true;
    } else if (method == "Debugger.resumed") {
        stopped_ = false;
        Advance();
    } else if (method == "Runtime.executionContextsCleared") {
        OnNewDocument();
    }
}

// What was on its way to the old one may have gone with it, and is never answered.
void InputQueue::OnNewDocument() {
    stopped_ = false;
    seen_ = nullptr;
    const bool isUnsent = current_ && current_->care != Care::kDone && !current_->since;
    isUnsent ? Repeat() : Finish();
}

void InputQueue::Advance() {
    while (!waiting_.empty() && !current_ && !StandsStill()) {
        if (moving_ && waiting_.size() == 1 && waiting_.front().care == Care::kLatest) return;
        Input next = std::move(waiting_.front());
        waiting_.pop_front();
        Start(std::move(next));
    }
}

void InputQueue::Start(Input input) {
    sentAt_ = GetTickCount64();
    switch (input.care) {
        case Care::kLatest:
            moving_ = true;
            return Post(input, &InputQueue::OnMoved);
        case Care::kInTurn:
            return Post(input, nullptr);
        default:
            current_ = std::move(input);
            if (current_->care == Care::kDone || !seen_.is_null()) return SendCurrent(seen_);
            Look(&InputQueue::SendCurrent);
    }
}

void InputQueue::Post(const Input& input, Step next) {
    target_.Post(input.method, input.parameters, [this, alive = alive_, round = round_, next](const Json*) {
        if (*alive && round == round_ && next) (this->*next)(Json());
    });
}

void InputQueue::Look(Step next) {
    page_.Ask("look", current_->care == Care::kText ? "true" : "false",
              [this, alive = alive_, round = round_, next](const Json& seen) {
                  if (*alive && round == round_) (this->*next)(seen);
              });
}

void InputQueue::OnMoved(const Json&) {
    moving_ = false;
    Advance();
}

void InputQueue::SendCurrent(const Json& seenBefore) {
    seen_ = seenBefore;
    if (StandsStill()) return Repeat();
    if (!current_->since) current_->since = GetTickCount64();
    stopsBefore_ = stops_;
    Post(*current_, &InputQueue::OnAnswered);
}

void InputQueue::OnAnswered(const Json&) {
    if (current_->care == Care::kDone) return Finish();
    Look(&InputQueue::OnLook);
}

void InputQueue::OnLook(const Json& seen) {
    const bool lost = seen.is_number() && seen == seen_ && stops_ != stopsBefore_;
    if (!seen.is_null()) seen_ = seen;
    if (lost && GetTickCount64() - current_->since < kPersistence) return Repeat();
    Finish();
}

void InputQueue::Repeat() {
    waiting_.push_front(std::move(*current_));
    Finish();
}

void InputQueue::Finish() {
    ++round_;
    moving_ = false;
    current_.reset();
    Advance();
}

}  // namespace tarvik
