#pragma once

#include <windows.h>

namespace tarvik {

// The user's wish that the program ends: Ctrl+C, Ctrl+Break, a console or session that goes. While an object
// lives, they do not end the program at once, which then has the time to clean up and end by itself.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    static HANDLE Event();  // set by the first wish, for good
    static bool IsWished();
    static void Check();  // throws a Failure if it is wished
};

}  // namespace tarvik
