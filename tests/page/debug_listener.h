#pragma once

#include <windows.h>

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tarvik/owners.h"
#include "log_viewer/debug_output.h"

namespace tarvik {

// Hears what processes write to the debugger's channel, as a viewer of such output does, while the object
// lives. There can be one such listener at a time in a session, so all programs of a test share it. Being a
// debugger would hear it too, but Wine's exceptions of C++ do not survive one.
class DebugListener {
  public:
    static std::shared_ptr<DebugListener> Shared();

    DebugListener();
    ~DebugListener();

    // The texts of a process so far, without the line ends.
    std::vector<std::string> Lines(DWORD process) const;
    // Hears what is on its way from processes that have ended.
    void CatchUp();

  private:
    struct Line {
        DWORD process;
        std::string text;
    };
    void Start();
    void Stop();
    void Listen();
    void Hear(DebugMessage message);

    std::optional<DebugOutput> output_ = DebugOutput::Open();
    UniqueHandle stop_;
    mutable std::mutex lock_;
    std::vector<Line> lines_;
    std::thread thread_;
};

}  // namespace tarvik
