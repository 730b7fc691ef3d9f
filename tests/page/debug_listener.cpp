#include "tests/page/debug_listener.h"

#include "tests/support/test.h"

namespace tarvik {

DebugListener::DebugListener() : stop_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
    EXPECT_TRUE(output_) << "another program receives the debugger output";
    Start();
}

DebugListener::~DebugListener() {
    Stop();
}

std::shared_ptr<DebugListener> DebugListener::Shared() {
    static std::weak_ptr<DebugListener> current;
    auto shared = current.lock();
    if (!shared) current = shared = std::make_shared<DebugListener>();
    return shared;
}

void DebugListener::Start() {
    thread_ = std::thread(&DebugListener::Listen, this);
}

void DebugListener::Stop() {
    SetEvent(stop_.Get());
    thread_.join();
    ResetEvent(stop_.Get());
}

void DebugListener::CatchUp() {
    Stop();
    Start();
}

void DebugListener::Listen() {
    const HANDLE events[] = {output_->Ready(), stop_.Get()};
    // Of two signaled events the first counts, so all pending messages are received before the stop.
    while (WaitForMultipleObjects(2, events, FALSE, INFINITE) == WAIT_OBJECT_0)
        Receive(output_->Take());
}

void DebugListener::Receive(DebugMessage message) {
    if (message.text.ends_with('\n')) message.text.pop_back();
    const std::lock_guard lock(lock_);
    lines_.push_back({message.process, std::move(message.text)});
}

std::vector<std::string> DebugListener::Lines(DWORD process) const {
    const std::lock_guard lock(lock_);
    std::vector<std::string> lines;
    for (const Line& line : lines_) {
        if (line.process == process) lines.push_back(line.text);
    }
    return lines;
}

}  // namespace tarvik
