#pragma once

#include <chrono>
#include <functional>

namespace tarvik {

// Pumps the messages of this thread until the condition is true. False after the time limit.
bool PumpUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));

// Polls the condition without pumping messages. False after the time limit, in milliseconds.
bool WaitFor(const std::function<bool()>& condition, unsigned long limit = 20'000);

// Dispatches the messages in the queue.
void PumpOnce();

// Runs the work on a thread in the multi-threaded apartment, and pumps messages until it has ended.
void OnWorker(const std::function<void()>& work);

}  // namespace tarvik
