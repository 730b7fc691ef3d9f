#include "page_control/bridge/page_thread.h"

#include <utility>

#include "page_control/injected/protocol.h"

namespace tarvik {

namespace {

constexpr protocol::Name<protocol::Kind::kResult> kQueuedResult = "queued";

}  // namespace

void PageThread::Apply(Event event) {
    using enum State;
    // A page pauses only after it has read its inbox: a pause in kQueued means that it has found the message.
    static constexpr State kTransitions[kStates][kEvents] = {
        // kCall, kReturn, kSend, kResume, kQueued, kPaused, kResumed
        {kCalling, kRunning, kRunning, kRunning, kRunning, kStopped, kRunning},    // kRunning
        {kCalling, kRunning, kRunning, kCalling, kCalling, kAwaiting, kCalling},   // kCalling
        {kAwaiting, kStopped, kStopped, kAwaiting, kQueued, kAwaiting, kCalling},  // kAwaiting
        {kQueued, kStopped, kStopped, kStopped, kQueued, kAwaiting, kCalling},     // kQueued
        {kAwaiting, kStopped, kStopped, kStopped, kStopped, kStopped, kRunning},   // kStopped
    };
    state_ = kTransitions[static_cast<size_t>(state_)][static_cast<size_t>(event)];
}

void PageThread::CompileUnreachableScript() {
    target_.Post(
        "Runtime.compileScript",
        {{"expression", "0"}, {"sourceURL", ""}, {"persistScript", true}, {"executionContextId", contextId_}},
        [self = shared_from_this()](const Json* result) {
            if (result) self->unreachableScript_ = result->value("scriptId", std::string());
        });
}

void PageThread::Send(std::string expression, TextHandler onOutcome) {
    const bool wakes = AwaitsMessage();
    Apply(Event::kSend);
    evaluations_ += wakes;
    const auto onResult = [self = shared_from_this(), wakes,
                           onOutcome = std::move(onOutcome)](const Json* result) {
        std::string text;
        if (result && !result->contains("exceptionDetails"))
            text = result->at("result").value("value", std::string());
        self->evaluations_ -= wakes;
        if (kQueuedResult == text)
            self->Apply(Event::kQueued);
        else if (onOutcome)
            onOutcome(text);
        self->ResumeIfNeeded();
    };
    target_.Engine().Batch([&] {
        target_.Post(
            "Runtime.evaluate",
            {{"expression", std::move(expression)}, {"contextId", contextId_}, {"returnByValue", true}},
            onResult);
        if (wakes) Resume();
    });
}

// The engine handles a plain resume on another thread, where it overtakes the evaluation sent before it every
// third time. Continuing to a location that is never reached has the same effect and keeps the order. But
// only a plain resume releases the objects that the engine has listed for the pause, everything on the stack;
// they would leak until the end of the document.
void PageThread::Resume() {
    if (unreachableScript_.empty()) return SendResume("Debugger.resume", {});
    SendResume("Debugger.continueToLocation",
               {{"location", {{"scriptId", unreachableScript_}, {"lineNumber", 0}}}});
    target_.Post("Runtime.releaseObjectGroup", {{"objectGroup", "backtrace"}});
}

void PageThread::SendResume(std::string_view method, Parameters params) {
    Apply(Event::kResume);
    resuming_ = true;
    target_.Post(method, std::move(params), [self = shared_from_this()](const Json*) {
        self->resuming_ = false;
        self->Apply(Event::kResumed);  // also after an error: then the page was not paused
        if (const auto handler = std::exchange(self->onResume_, nullptr)) handler();
    });
}

void PageThread::OnPaused() {
    isUnloading_ = false;
    Apply(Event::kPaused);
    ResumeIfNeeded();
}

void PageThread::ResumeIfNeeded() {
    if (ended_ || !target_.Engine().IsOpen()) return;
    if (state_ != State::kQueued && state_ != State::kStopped) return;
    if (resuming_ || evaluations_ > 0) return;
    SendResume("Debugger.resume", {});
}

}  // namespace tarvik
