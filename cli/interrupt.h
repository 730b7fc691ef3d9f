#pragma once

#include <windows.h>

namespace tarvik {

// Requests to end the program: Ctrl+C, Ctrl+Break, or the end of the console or the session. While an object
// of this class exists, they do not end the process immediately, so that the program can clean up first.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    static HANDLE Event();  // set by the first request, never reset
    static bool IsRequested();
    static void ThrowIfRequested();  // a Failure
};

}  // namespace tarvik
