#include "tests/soak/resource_monitor.h"

#include <windows.h>
#include <psapi.h>

#include <algorithm>
#include <string_view>

#include "page_control/engine/engine_path.h"
#include "page_control/engine/launch.h"
#include "tarvik/status.h"
#include "tarvik/text.h"
#include "tests/support/resource_counts.h"

namespace tarvik {

namespace {

// Now and then another one is created and cached.
constexpr double kHandlesRise = 2;
constexpr double kProcessesRise = 2;
// KB: as much as the garbage of allocators and of script fluctuates.
constexpr double kMemoryRise = 2048;
constexpr double kEngineRise = 40 * 1024;
constexpr double kHeapRise = 256;
constexpr double kDocumentsRise = 2;

std::string OwnMark() {
    std::string mark = Narrow(UniqueName());  // process ids are those of one Wine, and others run beside it
    SetEnvironmentVariableW(L"TARVIK_TEST_RUN", Widen(mark).c_str());
    return mark;
}

// In KB.
double PrivateMemory() {
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return static_cast<double>(counters.PagefileUsage) / 1024;
}

Json Targets(DevTools& engine) {
    return engine.Call("", "Target.getTargets").at("targetInfos");
}

}  // namespace

ResourceMonitor::ResourceMonitor() : processes_(OwnMark()) {}

void ResourceMonitor::NoteStart() {
    if (IsWine()) ++starts_;
}

void ResourceMonitor::WatchPage(SharedEngine& engine) {
    engine_ = engine.Acquire();
    for (const Json& target : Targets(*engine_)) {
        if (target.at("type") != "page") continue;
        session_ = AttachSession(*engine_, target.at("targetId"));
    }
}

Reading ResourceMonitor::Now() {
    Reading reading = {ResourceCounts::Now(),
                       {{"handles", static_cast<double>(CountHandles() - starts_), kHandlesRise},
                        {"memory KB", PrivateMemory(), kMemoryRise}}};
    const auto processes = processes_.Snapshot();
    reading.levels.push_back({"processes", static_cast<double>(processes.size()), kProcessesRise});
    reading.counts.Add("folders", processes_.CountFolders());
    if (engine_) {
        double memory = 0;
        for (const auto& process : processes)
            memory += static_cast<double>(EngineProcesses::MemoryOf(process));
        reading.levels.push_back({"engine KB", memory, kEngineRise});
        ReadPage(reading);
    }
    for (const auto& [what, rise] : allowed_) {
        const auto level = std::ranges::find(reading.levels, std::string_view(what), &Level::what);
        if (level != reading.levels.end()) {
            level->rise += rise;
        } else {
            reading.levels.push_back({what.c_str(), static_cast<double>(reading.counts.Take(what)), rise});
        }
    }
    return reading;
}

void ResourceMonitor::ReadPage(Reading& reading) {
    reading.counts.Add("targets", static_cast<long>(Targets(*engine_).size()));
    engine_->Call(session_, "HeapProfiler.collectGarbage");
    const double heap = engine_->Call(session_, "Runtime.getHeapUsage").at("usedSize");
    const double documents = engine_->Call(session_, "Memory.getDOMCounters").at("documents");
    reading.levels.push_back({"heap KB", heap / 1024, kHeapRise});
    reading.levels.push_back({"documents", documents, kDocumentsRise});
}

}  // namespace tarvik
