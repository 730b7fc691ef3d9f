#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// The progress of a long operation in percent, on a line that is updated in place. If the output is not a
// console, the line is written once, without a number.
class ProgressLine {
  public:
    ProgressLine(std::wstring_view title, ULONGLONG total);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Advance(ULONGLONG count);  // throws a Failure if the user interrupts

  private:
    void Show(unsigned percent);

    std::wstring title_;
    ULONGLONG total_;
    ULONGLONG done_ = 0;
    unsigned shown_ = 0;
};

}  // namespace tarvik
