#pragma once

#include <memory>
#include <string>

#include "control/engine/shared_engine.h"
#include "tests/soak/course.h"
#include "tests/support/engine_processes.h"

namespace tarvik {

// Counts what this process and its engine hold: beside the process's own, targets, processes and folders of
// the engine, and the memory and documents of one page that stays.
class EngineCensus {
  public:
    // Before the engine starts, so that its processes can be known by their environment.
    EngineCensus();

    // The page of the only window there is now. While one is watched, the engine goes on.
    void WatchPage(SharedEngine& engine);
    void ForgetPage();

    // An engine has been started. Wine loses a handle in this process whenever it starts a program of the
    // system underneath, which is not held against anybody.
    void NoteStart();

    Reading Now();

    // What is left of the engine when the last window has gone; empty if nothing is.
    std::string Left() { return processes_.Left(); }

  private:
    void ReadPage(Reading& reading);

    EngineProcesses processes_;
    std::shared_ptr<DevTools> engine_;
    std::string session_;
    long starts_ = 0;
};

}  // namespace tarvik
