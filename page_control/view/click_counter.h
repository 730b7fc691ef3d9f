#pragma once

#include <windows.h>

namespace tarvik {

// Counts single, double and triple clicks by the system's rules: the same button, in time, near the last
// press.
class ClickCounter {
  public:
    // The click count of this press. `time` is the message's, in milliseconds.
    int Press(int button, POINT point, DWORD time);
    // The click count of the last press; 1 before the first.
    int Last() const { return count_; }

  private:
    int count_ = 1;
    int button_ = 0;
    POINT point_ = {};
    DWORD time_ = 0;
};

}  // namespace tarvik
