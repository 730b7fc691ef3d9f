#pragma once

#include <chrono>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/resource_counts.h"

// What every soak test is made of: numbers on its command line, random choices, and a step that is repeated
// while resources are watched for growth.
namespace tarvik {

// The body of wmain: replaces `numbers` by those on the command line, and calls `soak`. Returns the exit
// code.
int RunSoak(int argc, wchar_t** argv, std::vector<int> numbers,
            const std::function<bool(const std::vector<int>& numbers)>& soak);

// Random choices, the same for the same seed.
void SeedRandom(int seed);
int Random(int below);
template <class List>
const auto& AnyOf(const List& list) {
    return list[static_cast<size_t>(Random(static_cast<int>(std::size(list))))];
}

// A fluctuating amount. Its average may rise by at most `rise` from the second quarter of a loop to the last
// one.
struct Level {
    const char* what;
    double amount;
    double rise;
};

struct Reading {
    ResourceCounts counts;
    std::vector<Level> levels;
};

// Repeats a step many times, while it watches the resources of the process for growth. It prints readings,
// and at the end what has grown.
class SoakLoop {
  public:
    // `read` returns the same counts and levels each time.
    SoakLoop(const char* name, std::function<Reading()> read) : name_(name), read_(std::move(read)) {}

    // The first `warmUp` steps are not watched, because they allocate what is allocated once. False if
    // something has grown, or if a step returns false, which ends the loop.
    bool Run(int warmUp, int steps, const std::function<bool(int step)>& step);

  private:
    void Note(int step, Reading reading);
    std::string Risen() const;
    double Average(size_t level, size_t first, size_t end) const;

    const char* name_;
    std::function<Reading()> read_;
    const std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    std::vector<Reading> readings_;
};

}  // namespace tarvik
