#pragma once

#include <set>
#include <string>
#include <vector>

namespace tarvik {

// What one run of the program has started of the engine, as the system underneath Wine tells: a shell, the
// engine's processes, and their folder.
class EngineProcesses {
  public:
    // The value of TARVIK_TEST_RUN in the program's environment, which they have inherited.
    explicit EngineProcesses(std::string mark) : mark_(std::move(mark)) {}

    // Only there.
    static bool CanBeSeen();

    // Those that live now. They, and their folder, are remembered.
    struct Process {
        int id = 0;
        int parent = 0;
        std::string start;    // with the id, what tells it from every other
        std::string command;  // with its arguments, a blank between

        bool IsEngine() const;  // the one that all others end with
        bool IsPage() const;
    };
    std::vector<Process> Look();
    // Its memory that is its own alone, in KB.
    static long MemoryOf(const Process& process);
    // Folders of theirs that are there.
    long Folders() const;
    // What is left of all those that were ever seen, and of their folders; empty if nothing is.
    std::string Left();

    void Kill(bool (Process::*which)() const) { Signal(L"KILL", which); }
    void Stop(bool (Process::*which)() const) { Signal(L"STOP", which); }

  private:
    void Signal(const std::wstring& name, bool (Process::*which)() const);
    bool BelongsToRun(const Process& process) const;

    const std::string mark_;
    std::set<std::pair<int, std::string>> seen_;
    std::set<std::wstring> folders_;
};

}  // namespace tarvik
