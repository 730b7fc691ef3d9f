#pragma once

#include <chrono>
#include <functional>

namespace tarvik {

// Pumps this thread's messages until the condition holds. False when the time is over first.
bool PumpUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds limit = std::chrono::seconds(10));

// Delivers what is waiting now.
void PumpOnce();

}  // namespace tarvik
