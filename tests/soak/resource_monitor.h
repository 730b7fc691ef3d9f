#pragma once

#include <map>
#include <memory>
#include <string>

#include "page_control/engine/shared_engine.h"
#include "tests/soak/soak.h"
#include "tests/support/engine_processes.h"

namespace tarvik {

// Counts the resources of this process and its engine: targets, processes and folders of the engine, and the
// memory and documents of one page. Create it before the engine starts, because it identifies the engine's
// processes by their environment.
class ResourceMonitor {
  public:
    ResourceMonitor();

    // Watches the page of the only window. While a page is watched, the engine is kept.
    void WatchPage(SharedEngine& engine);
    void ForgetPage() { engine_.reset(); }

    // To be called when an engine has started. Wine leaks a handle of this process for each program of the
    // Unix host that it starts, which Now deducts.
    void NoteStart();

    // Lets a resource rise on average by so much more, because the system caches some.
    void AllowRise(const std::string& what, double rise) { allowed_[what] = rise; }

    Reading Now();

    // The processes and folders of the engine that still exist, as text; empty if there are none.
    std::string Remaining() { return processes_.Remaining(); }

  private:
    void ReadPage(Reading& reading);

    EngineProcesses processes_;
    std::shared_ptr<DevTools> engine_;
    std::string session_;
    std::map<std::string, double> allowed_;
    long starts_ = 0;
};

}  // namespace tarvik
