#pragma once

#include <windows.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "base/owners.h"

namespace tarvik {

// Hears what processes write to the debugger's channel, as a viewer of such output does, from its first use
// to the end of this process. There can be one such listener at a time in a session. Being a debugger would
// hear it too, but Wine's exceptions of C++ do not survive one.
class DebugListener {
  public:
    static DebugListener& Shared();

    // The texts of a process so far, without the line ends.
    std::vector<std::string> Lines(DWORD process) const;
    // Hears what is on its way from processes that have ended.
    void CatchUp();

  private:
    struct Line {
        DWORD process;
        std::string text;
    };
    DebugListener();
    ~DebugListener();
    void Listen();
    void Hear();

    UniqueHandle mapping_;
    UniqueView view_;
    UniqueHandle bufferFree_;
    UniqueHandle dataReady_;
    UniqueHandle stop_;
    mutable std::mutex lock_;
    std::vector<Line> lines_;
    std::thread thread_;
};

}  // namespace tarvik
