#pragma once

#include <atomic>

namespace tarvik {

// Shared by a thread that prints and the thread that shows it.
struct PrintProgress {
    std::atomic<int> done = 0;  // of `total`
    std::atomic<int> total = 0;
    std::atomic<bool> cancelled = false;
};

}  // namespace tarvik
