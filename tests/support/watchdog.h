#pragma once

namespace tarvik {

// Ends a test program whose current test hangs, with a status of its own, after saying which test it was.
inline constexpr int kHungStatus = 77;
void StartWatchdog();

}  // namespace tarvik
