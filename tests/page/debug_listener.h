#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "log_viewer/debug_output.h"
#include "tarvik/owners.h"

namespace tarvik {

// Receives the texts that other processes write with OutputDebugString, as a viewer of such output does. A
// session can have one listener at a time, so all programs of a test share it. (A debugger would receive the
// texts, too, but under Wine C++ exceptions do not work in a debugged process.)
class DebugListener {
  public:
    static std::shared_ptr<DebugListener> Shared();

    DebugListener();
    ~DebugListener();

    // The texts of a process so far, without line ends.
    std::vector<std::string> Lines(DWORD process) const;
    // Receives the pending texts of processes that have ended.
    void CatchUp();

  private:
    struct Line {
        DWORD process;
        std::string text;
    };
    void Start();
    void Stop();
    void Listen();
    void Receive(DebugMessage message);

    std::optional<DebugOutput> output_ = DebugOutput::Open();
    UniqueHandle stop_;
    mutable std::mutex lock_;
    std::vector<Line> lines_;
    std::thread thread_;
};

}  // namespace tarvik
