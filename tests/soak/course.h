#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/leak_check.h"

namespace tarvik {

// An amount that goes up and down and must stay level all the same: from a course's second quarter to its
// last one, its average may rise by no more than `rise`.
struct Level {
    const char* what;
    double amount;
    double rise;
};

struct Reading {
    Holdings holdings;
    std::vector<Level> levels;
};

// A long run of equal steps, while which it is watched what the process holds. It prints that, and at the
// end what has grown.
class Course {
  public:
    // `read` gives the same counts and levels each time.
    Course(const char* name, std::function<Reading()> read) : name_(name), read_(std::move(read)) {}

    // The first steps are not watched: what they leave behind is made once and kept. False when something has
    // grown, or when a step has said false, which ends the course.
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

// Memory of this process that is its own alone, in KB.
double PrivateMemory();

}  // namespace tarvik
