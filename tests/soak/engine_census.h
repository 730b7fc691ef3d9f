#pragma once

#include <memory>
#include <string>

#include "page_control/engine/shared_engine.h"
#include "tests/soak/course.h"
#include "tests/support/engine_processes.h"

namespace tarvik {

// Counts the resources of this process and its engine: targets, processes and folders of the engine, and the
// memory and documents of one page.
class EngineCensus {
  public:
    // Create it before the engine starts, because it identifies the engine's processes by their environment.
    EngineCensus();

    // Watches the page of the only window. While a page is watched, the engine is kept.
    void WatchPage(SharedEngine& engine);
    void ForgetPage();

    // To be called when an engine has started. Wine leaks a handle of this process for each program of the
    // Unix host that it starts, which Now deducts.
    void NoteStart();

    Reading Now();

    // The processes and folders of the engine that still exist, as text; empty if there are none.
    std::string Left() { return processes_.Remaining(); }

  private:
    void ReadPage(Reading& reading);

    EngineProcesses processes_;
    std::shared_ptr<DevTools> engine_;
    std::string session_;
    long starts_ = 0;
};

}  // namespace tarvik
