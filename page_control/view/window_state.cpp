#include "page_control/view/window_state.h"

#include <utility>

#include "page_control/view/window_numbers.h"

namespace tarvik {

namespace {

constexpr UINT kMouseRest = 300;  // milliseconds

}  // namespace

bool IsShown(HWND window) {
    return IsWindowVisible(window) && !IsIconic(GetAncestor(window, GA_ROOT));
}

WindowState::WindowState(HWND window, PageTarget& target, EngineWindow& engineWindow, ViewScript& script,
                         InputQueue& queue)
    : window_(window),
      target_(target),
      engineWindow_(engineWindow),
      script_(script),
      queue_(queue),
      secondSession_(AttachSession(target.Engine(), target.Id())) {
    Update();
}

WindowState::~WindowState() {
    *alive_ = false;
    KillTimer(window_, kFocusTimer);
    target_.Engine().Post("", "Target.detachFromTarget", {{"sessionId", secondSession_}});
}

WindowState::State WindowState::Measure() {
    const bool isShown = IsShown(window_);
    wasShown_ |= isShown;
    if (!isShown && wasShown_) return State::kHidden;
    return GetFocus() == window_ ? State::kActive : State::kInactive;
}

void WindowState::Update() {
    const State state = Measure();
    if (std::exchange(requested_, state) != state) QueueApply();
}

void WindowState::OnMouse() {
    if (applied_ == State::kInactive) SetTimer(window_, kFocusTimer, kMouseRest, nullptr);
}

// Makes the page active, which it does not notice, and inactive.
void WindowState::OnTimer() {
    KillTimer(window_, kFocusTimer);
    if (applying_ || applied_ != State::kInactive) return;
    applied_ = State::kActive;
    engineWindow_.SetMinimized(false);
    EmulateFocus(target_.Session(), true, [this] { QueueApply(); });
}

// In order with the input, and not while the page is in a native call, in which it would miss the events.
void WindowState::QueueApply() {
    queue_.AddTask([this, alive = alive_](const std::function<void()>& done) {
        if (*alive) Apply();
        done();
    });
}

// Commands of two sessions may overtake each other, so one waits for the other.
void WindowState::Apply() {
    if (applying_) return;
    if (std::exchange(applied_, requested_) == requested_) return RunTasks();
    applying_ = true;
    const bool isActive = applied_ == State::kActive;
    const bool isHidden = applied_ == State::kHidden;
    engineWindow_.SetMinimized(!isActive);
    const auto finish = [this] {
        applying_ = false;
        script_.Call("watchState", "", [](const Json&) {});
        QueueApply();
    };
    const std::string& ownSession = target_.Session();
    if (isActive) return EmulateFocus(ownSession, true, finish);
    EmulateFocus(isHidden ? ownSession : secondSession_, !isHidden, [this, isHidden, finish] {
        EmulateFocus(isHidden ? secondSession_ : target_.Session(), false, finish);
    });
}

void WindowState::WhenActive(std::function<void()> task) {
    tasks_.push_back(std::move(task));
    if (!applying_ && applied_ == requested_) RunTasks();
}

void WindowState::RunTasks() {
    if (applied_ != State::kActive) return;
    for (const auto& task : std::exchange(tasks_, {}))
        task();
}

void WindowState::EmulateFocus(const std::string& session, bool enabled, std::function<void()> next) {
    target_.Engine().Post(session, "Emulation.setFocusEmulationEnabled", {{"enabled", enabled}},
                          [alive = alive_, next = std::move(next)](const Json*) {
                              if (*alive) next();
                          });
}

}  // namespace tarvik
