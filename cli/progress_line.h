#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// How far a long work has come, in a line that is written again and again; where the output is no console,
// one that only tells that the work begins.
class ProgressLine {
  public:
    ProgressLine(std::wstring_view title, ULONGLONG total);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Advance(ULONGLONG count);  // throws a Failure if the user wishes the end

  private:
    void Show(unsigned percent);

    std::wstring title_;
    ULONGLONG total_;
    ULONGLONG done_ = 0;
    unsigned shown_ = 0;
};

}  // namespace tarvik
