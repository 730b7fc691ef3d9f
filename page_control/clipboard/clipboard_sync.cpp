#include "page_control/clipboard/clipboard_sync.h"

#include <utility>

namespace tarvik {

namespace {

// Programs that monitor the clipboard open it for a moment after each change.
constexpr UINT_PTR kRetryTimer = 1;
constexpr UINT kRetryInterval = 20;  // milliseconds
constexpr int kAttempts = 100;

}  // namespace

std::shared_ptr<ClipboardSync> ClipboardSync::Of(const std::shared_ptr<DevTools>& engine) {
    static std::weak_ptr<ClipboardSync> last;
    auto sync = last.lock();
    if (!sync || sync->engine_.Engine() != engine) sync = std::make_shared<ClipboardSync>(engine);
    last = sync;
    return sync;
}

ClipboardSync::ClipboardSync(std::shared_ptr<DevTools> engine)
    : window_([this](UINT message, WPARAM timer) {
          if (message == WM_TIMER && timer == kRetryTimer) OnTimer();
      }),
      engine_(std::move(engine)) {}

void ClipboardSync::CopyToEngine(Done done) {
    const auto operation = [this] {
        if (sequence_ != 0 && GetClipboardSequenceNumber() == sequence_) return Finish(true);
        Try([this] { return ReadSystem(); });
    };
    Add(operation, std::move(done));
}

void ClipboardSync::CopyToSystem(Wait wait, Done done) {
    const auto operation = [this, wait = std::move(wait), before = GetClipboardSequenceNumber()] {
        before_ = before;
        wait([weak = weak_from_this()](bool isKnown) {
            if (const auto self = weak.lock()) self->ReadEngine(isKnown);
        });
    };
    Add(operation, std::move(done));
}

void ClipboardSync::Add(Operation operation, Done done) {
    pending_.push_back({std::move(operation), std::move(done)});
    StartNext();
}

void ClipboardSync::StartNext() {
    if (running_ || pending_.empty()) return;
    running_ = true;
    const Operation operation = std::move(pending_.front().operation);
    operation();
}

void ClipboardSync::Finish(bool succeeded) {
    const auto self = shared_from_this();  // the handler may release the last page
    const Done done = std::move(pending_.front().done);
    pending_.pop_front();
    running_ = false;
    done(succeeded);
    StartNext();
}

// Repeats the attempt until it succeeds.
void ClipboardSync::Try(Attempt attempt) {
    attempt_ = std::move(attempt);
    attempts_ = 0;
    OnTimer();
}

void ClipboardSync::OnTimer() {
    KillTimer(window_.Get(), kRetryTimer);
    const Attempt attempt = std::move(attempt_);
    if (attempt()) return;
    if (++attempts_ == kAttempts) return Finish(false);
    attempt_ = attempt;
    SetTimer(window_.Get(), kRetryTimer, kRetryInterval, nullptr);
}

bool ClipboardSync::ReadSystem() {
    const auto state = ReadSystemClipboard(window_.Get());
    if (!state) return false;
    engine_.Write(state->content,
                  [this, sequence = state->sequence, text = state->content.text](bool succeeded) {
                      if (succeeded) sequence_ = sequence;
                      if (succeeded) lastText_ = text;
                      Finish(succeeded);
                  });
    return true;
}

void ClipboardSync::ReadEngine(bool isKnown) {
    engine_.Read([this, isKnown](const ClipboardContent* content) {
        if (!content || (!isKnown && content->text == lastText_)) return Finish(content);
        Try([this, content = *content] { return WriteSystem(content); });
    });
}

bool ClipboardSync::WriteSystem(const ClipboardContent& content) {
    // What another program has copied since is newer.
    const DWORD now = GetClipboardSequenceNumber();
    if (now != before_ && now != sequence_) {
        Finish(true);
        return true;
    }
    if (!WriteSystemClipboard(window_.Get(), content)) return false;
    sequence_ = GetClipboardSequenceNumber();
    lastText_ = content.text;
    Finish(true);
    return true;
}

}  // namespace tarvik
