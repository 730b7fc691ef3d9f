#include "page_control/page/response_monitor.h"

#include <utility>

#include "page_control/view/window_numbers.h"
#include "page_control/view/window_state.h"

namespace tarvik {

namespace {

constexpr UINT kInterval = 2500;  // milliseconds
constexpr int kMaxUnanswered = 4;
constexpr DWORD kTimeout = kMaxUnanswered * kInterval;

}  // namespace

ResponseMonitor::ResponseMonitor(HWND window, PageTarget& target, Handler onChange)
    : window_(window), target_(target), onChange_(std::move(onChange)) {
    SetTimer(window_, kResponseTimer, kInterval, nullptr);
}

ResponseMonitor::~ResponseMonitor() {
    *alive_ = false;
    KillTimer(window_, kResponseTimer);
}

void ResponseMonitor::OnTimer() {
    if (!IsShown(window_) || dialogOpen_) {
        unanswered_ = 0;
        return;
    }
    if (unanswered_ == kMaxUnanswered) return SetResponds(false);
    ++unanswered_;
    Query();
}

// A cheap command that the engine runs on the page's script thread.
void ResponseMonitor::Query() {
    target_.Post("Runtime.getIsolateId", {}, [this, alive = alive_](const Json*) {
        if (*alive) OnReply();
    });
}

void ResponseMonitor::OnReply() {
    ++replies_;
    unanswered_ = 0;
    SetResponds(true);
}

void ResponseMonitor::SetResponds(bool responds) {
    if (std::exchange(responds_, responds) != responds) onChange_(responds);
}

void ResponseMonitor::Restart() {
    ++replies_;
    unanswered_ = 0;
    responds_ = true;
}

void ResponseMonitor::SetDialogOpen(bool open) {
    dialogOpen_ = open;
    unanswered_ = 0;
}

bool ResponseMonitor::Responds() {
    if (dialogOpen_ || !responds_) return responds_;
    const auto engine = target_.EnginePointer();
    const auto alive = alive_;
    const unsigned long before = replies_;
    Query();
    engine->WaitUntil([&] { return !*alive || !responds_ || replies_ != before; }, kTimeout);
    if (*alive && replies_ == before) SetResponds(false);
    return *alive && responds_;
}

}  // namespace tarvik
