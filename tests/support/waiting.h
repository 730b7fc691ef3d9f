#pragma once

#include <chrono>
#include <functional>

namespace tarvik {

// Pumps this thread's messages until the condition holds. False when the time is over first.
bool PumpUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));

// Looks again and again, for processes other than this one. False when the time (milliseconds) is over first.
bool WaitFor(const std::function<bool()>& condition, unsigned long limit = 20'000);

// Delivers what is waiting now.
void PumpOnce();

// Does the work on a thread in the multi-threaded apartment while this one pumps.
void OnWorker(const std::function<void()>& work);

}  // namespace tarvik
