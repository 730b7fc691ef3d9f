#pragma once

#include <chrono>
#include <functional>

namespace tarvik {

// The limit of every wait, in milliseconds. It is for hangs: a loaded machine needs a fraction of it.
inline constexpr unsigned long kWaitLimit = 90'000;

// Pumps the messages of this thread until the condition is true. False after the time limit.
bool PumpUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::milliseconds(kWaitLimit));

// Polls the condition without pumping messages. False after the time limit, in milliseconds.
bool WaitFor(const std::function<bool()>& condition, unsigned long limit = kWaitLimit);

// Dispatches the messages in the queue.
void PumpOnce();

// Runs the work on a thread in the multi-threaded apartment, and pumps messages until it has ended.
void OnWorker(const std::function<void()>& work);

}  // namespace tarvik
