#pragma once

#include <windows.h>

namespace tarvik {

// Tells single, double and triple clicks by the rules of the system: the same button, in time, near the last
// press.
class ClickCounter {
  public:
    // `time` is the message's, in milliseconds.
    int Press(int button, POINT point, DWORD time);
    // Of the last press; 1 before the first one.
    int Last() const { return count_; }

  private:
    int count_ = 1;
    int button_ = 0;
    POINT point_ = {};
    DWORD time_ = 0;
};

}  // namespace tarvik
