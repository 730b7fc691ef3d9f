#pragma once

#include <set>
#include <string>
#include <vector>

namespace tarvik {

// The processes on the Unix host that one start of the program has started for its engine: a shell and the
// engine's own, and their folder.
class EngineProcesses {
  public:
    // `mark` is the value of TARVIK_TEST_RUN in the environment of the program, which they inherit.
    explicit EngineProcesses(std::string mark) : mark_(std::move(mark)) {}

    // Whether this runs under Wine, with access to /proc.
    static bool AreVisible();

    struct Process {
        int id = 0;
        int parent = 0;
        std::string start;    // unique together with the id
        std::string command;  // with its arguments, separated by spaces

        bool IsEngine() const;  // the main process, with which all others end
        bool IsPage() const;
    };
    // The running processes. Later calls also find these, and their folder.
    std::vector<Process> Snapshot();
    // The private memory of a process, in KB.
    static long MemoryOf(const Process& process);
    // The number of folders that exist.
    long CountFolders() const;
    // The processes and folders that Snapshot has ever found and that still exist, as text; empty if there
    // are none.
    std::string Remaining();

    void Kill(bool (Process::*which)() const) { Signal(L"KILL", which); }
    void Suspend(bool (Process::*which)() const) { Signal(L"STOP", which); }

  private:
    void Signal(const std::wstring& name, bool (Process::*which)() const);
    bool BelongsToRun(const Process& process) const;

    const std::string mark_;
    std::set<std::pair<int, std::string>> seen_;
    std::set<std::wstring> folders_;
};

// Starts a shell command on the Unix host.
void RunOnUnixHost(const std::wstring& command);

}  // namespace tarvik
