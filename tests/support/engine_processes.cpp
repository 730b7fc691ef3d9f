#include "tests/support/engine_processes.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/owners.h"
#include "tarvik/text.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

namespace {

namespace fs = std::filesystem;
using Process = EngineProcesses::Process;

constexpr const wchar_t* kProcesses = L"Z:\\proc\\";

// Empty or truncated if the process ends meanwhile: reading then fails, and a stream iterator would throw.
std::string Read(int id, const wchar_t* file) {
    std::ifstream stream(fs::path(kProcesses) / std::to_wstring(id) / file, std::ios::binary);
    std::string text;
    char part[4096];
    while (stream.read(part, sizeof part), stream.gcount() > 0)
        text.append(part, static_cast<size_t>(stream.gcount()));
    return text;
}

// Parses "id (name) state parent ...", in which the name may contain any character. False for a zombie.
bool ReadState(Process& process) {
    const std::string state = Read(process.id, L"stat");
    const size_t end = state.rfind(')');
    if (end == std::string::npos) return false;
    constexpr size_t kParent = 1, kStart = 19;
    std::istringstream rest(state.substr(end + 1));
    const std::vector<std::string> fields(std::istream_iterator<std::string>(rest), {});
    if (fields.size() <= kStart || fields[0] == "Z" || fields[0] == "X") return false;
    process.parent = std::stoi(fields[kParent]);
    process.start = fields[kStart];
    process.command = Read(process.id, L"cmdline");
    std::ranges::replace(process.command, '\0', ' ');
    return true;
}

std::vector<Process> AllProcesses() {
    std::vector<Process> all;
    WIN32_FIND_DATAW entry = {};
    const UniqueFind search(FindFirstFileW((std::wstring(kProcesses) + L"*").c_str(), &entry));
    for (BOOL more = search ? TRUE : FALSE; more; more = FindNextFileW(search.Get(), &entry)) {
        Process process = {_wtoi(entry.cFileName), 0, {}, {}};
        if (process.id > 0 && ReadState(process)) all.push_back(std::move(process));
    }
    return all;
}

// The folder in the engine's "... --user-data-dir=/tmp/folder/p ..." or in the shell's "... d='/tmp/folder';
// ...".
std::wstring FolderIn(const std::string& command) {
    for (const auto& [start, end] :
         {std::pair<std::string_view, const char*>("--user-data-dir=/tmp/", "/p "), {"d='/tmp/", "'"}}) {
        const size_t found = command.find(start);
        if (found == std::string::npos) continue;
        const std::string rest = command.substr(found + start.size());
        return L"Z:\\tmp\\" + Widen(rest.substr(0, rest.find(end)));
    }
    return {};
}

}  // namespace

bool EngineProcesses::AreVisible() {
    return FileExists(L"Z:\\proc\\self\\stat");
}

bool EngineProcesses::BelongsToRun(const Process& process) const {
    if (seen_.contains({process.id, process.start})) return true;
    // The program itself, and Wine processes that it has started, have the same environment.
    const bool isProgram = process.command.find(".exe") != std::string::npos;
    return !isProgram &&
           Read(process.id, L"environ").find("TARVIK_TEST_RUN=" + mark_ + '\0') != std::string::npos;
}

std::vector<Process> EngineProcesses::Snapshot() {
    std::vector<Process> all = AllProcesses();
    auto others = std::partition(all.begin(), all.end(),
                                 [this](const Process& process) { return BelongsToRun(process); });
    // A process that the engine forks may have lost its environment; its parent identifies it.
    for (auto parent = all.begin(); parent != others; ++parent) {
        others = std::partition(others, all.end(),
                                [&](const Process& other) { return other.parent == parent->id; });
    }
    all.erase(others, all.end());
    for (const Process& process : all) {
        seen_.emplace(process.id, process.start);
        if (const std::wstring folder = FolderIn(process.command); !folder.empty()) folders_.insert(folder);
    }
    return all;
}

long EngineProcesses::MemoryOf(const Process& process) {
    constexpr std::string_view kOwn = "RssAnon:";
    const std::string status = Read(process.id, L"status");
    const size_t found = status.find(kOwn);
    return found == std::string::npos ? 0 : std::stol(status.substr(found + kOwn.size()));
}

long EngineProcesses::CountFolders() const {
    return static_cast<long>(std::ranges::count_if(folders_, FileExists));
}

std::string EngineProcesses::Remaining() {
    std::string remaining;
    for (const Process& process : Snapshot())
        remaining += process.command.substr(0, 200) + "\n";
    for (const std::wstring& folder : folders_) {
        if (FileExists(folder)) remaining += Narrow(folder) + "\n";
    }
    return remaining;
}

bool Process::IsEngine() const {
    return command.find("--user-data-dir=/tmp/") != std::string::npos &&
           command.find("--type=") == std::string::npos;
}

bool Process::IsPage() const {
    return command.find("--type=renderer") != std::string::npos;
}

void EngineProcesses::Signal(const std::wstring& name, bool (Process::*which)() const) {
    std::wstring command = L"kill -" + name;
    for (const Process& process : Snapshot()) {
        if ((process.*which)()) command += L" " + std::to_wstring(process.id);
    }
    RunOnUnixHost(command);
}

void RunOnUnixHost(const std::wstring& command) {
    std::wstring line = L"Z:\\bin\\sh -c \"" + command + L"\"";
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION information = {};
    CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                   &information);
    // The handles in `information` are not closed: for a Unix program, Wine leaves random values there, which
    // may be handles of this process.
}

}  // namespace tarvik
