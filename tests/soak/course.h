#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/resource_counts.h"

namespace tarvik {

// A fluctuating amount. Its average may rise by at most `rise` from the second quarter of a course to the
// last one.
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
class Course {
  public:
    // `read` returns the same counts and levels each time.
    Course(const char* name, std::function<Reading()> read) : name_(name), read_(std::move(read)) {}

    // The first `warmUp` steps are not watched, because they allocate what is allocated once. False if
    // something has grown, or if a step returns false, which ends the course.
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

// The private memory of this process, in KB.
double PrivateMemory();

}  // namespace tarvik
