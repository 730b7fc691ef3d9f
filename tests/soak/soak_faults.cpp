// soak_faults [KILLS [COPIES [SEED]]]: runs the program in a faulty environment. Kills the engine or the
// program at random moments, KILLS times each; starts COPIES programs at once; uses faulty folders for
// temporary files, faulty engines and a read-only application, at most 2 * KILLS of them. Prints
// each attempt and what it left behind. Fails if the program does not recover, or if processes of the engine,
// FIFOs, profiles or unpacked folders are left.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <span>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/soak.h"
#include "tests/support/engine_processes.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;
using Process = EngineProcesses::Process;

// The shell of an engine waits for 20 seconds for a host that was killed, and a host as long for its engine.
constexpr DWORD kTimeout = 90'000;

// Sends a file slowly, so that a download is always running.
void SendSlowly(const WebExchange& exchange) {
    constexpr int kParts = 20;
    const std::string part(10'000, 'x');
    exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kParts * part.size()) + "\r\n\r\n");
    for (int i = 0; i < kParts && exchange.Send(part); ++i)
        Sleep(10);
}

// A page that makes calls, downloads and unzips for ever. It logs its name, which states where it is from.
std::string Page(const std::string& url, const std::string& name) {
    return "<!doctype html><script>"
           "function download() { external.http.createClient().downloadToFile("
           "{url: '" +
           url +
           "', destPath: 'file', success: download, fail: pause }); }"
           "function unzip() { external.minizip.unzip("
           "{src: 'data.zip', dest: 'out', success: unzip, fail: pause }); }"
           "function pause() {}"
           "download(); unzip();"
           "setInterval(function () { for (var i = 0; i < 20; ++i) external.window.title; }, 1);"
           "console.log('" +
           name + "');</script>";
}

std::string Noise(size_t size) {
    std::string noise(size, '\0');
    for (char& byte : noise)
        byte = static_cast<char>(Random(256));
    return noise;
}

// The names of unpacked folders and of their locks.
std::string UnpackedIn(const fs::path& folder) {
    std::string names;
    std::error_code missing;
    for (const auto& entry : fs::directory_iterator(folder, missing)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with("TV")) names += name + " ";
    }
    return names;
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

// A copy of the built program with an application attached, which is too large for the small disk. If it
// cannot be unpacked, the program opens another application beside it.
class PackedProgram {
  public:
    explicit PackedProgram(const fs::path& folder) : path_(folder / L"packed.exe") {
        const std::string data = WriteArchive({{"one", Noise(200'000)}, {"two", std::string(300'000, '2')}});
        const std::string url = Narrow(server_.Url(L"file"));
        fs::copy_file(fs::path(ExecutablePath()).parent_path() / L"tarvik.exe", path_);
        std::ofstream(path_, std::ios::binary | std::ios::app)
            << WriteArchive({{"resource/index.html", Page(url, "unpacked")},
                             {"resource/data.zip", data},
                             {"resource/noise", Noise(1'500'000)}});
        WriteFile(folder / L"resource\\index.html", Page(url, "beside"));
    }
    const fs::path& Path() const { return path_; }

  private:
    const WebServer server_{SendSlowly};
    const fs::path path_;
};

// A program, which may be started several times, and its engines.
class Subject {
  public:
    explicit Subject(const PackedProgram& packed) { program.UseExecutable(packed.Path()); }

    // How often the program has loaded a page since its last start.
    long Count(const char* page) const {
        return static_cast<long>(std::ranges::count(program.Lines(), page));
    }
    bool Shows(const char* page) const {
        return WaitFor([&] { return Count(page) > 0; }, kTimeout);
    }

    // The text in its window if there is no page.
    std::string Notice() const {
        const auto windows = program.Windows();
        return windows.empty() ? "" : Narrow(TextOf(InnermostWindow(windows[0])));
    }

    // Quits the program. Returns the problem, if there is one.
    std::string End() {
        if (program.IsRunning() && program.Quit(3) != 3) return "does not quit";
        const std::string unpacked = UnpackedIn(program.Temp());
        return LeftOfEngine() + (unpacked.empty() ? "" : "left behind: " + unpacked);
    }

    // Waits for the end of all its engines. Returns the problem, if there is one.
    std::string LeftOfEngine() {
        if (WaitFor([this] { return engine.Remaining().empty(); }, kTimeout)) return {};
        return "left behind: " + engine.Remaining();
    }

    Program program;
    EngineProcesses engine{program.Mark()};
};

const std::wstring kLongName(250, L'l');

struct Fault {
    const char* what;
    const char* page;               // that is loaded in spite of the fault; null: there is a notice
    const wchar_t* temp = nullptr;  // TEMP: relative to the folder of the test, empty for unset
    const char* disk = nullptr;     // TEMP is this faulty disk
    const char* engine = nullptr;   // the fault of broken_engine
};

const Fault kFaults[] = {
    {"no folder for temporary files", "unpacked", L""},
    {"an engine that exits", nullptr, nullptr, nullptr, "exits"},
    {"blanks and letters in the temporary folder", "unpacked", L"\u00e4 \u6f22 'temp' %25"},
    {"an engine with strange fonts", "unpacked", nullptr, nullptr, "fonts"},
    {"a file instead of the temporary folder", "beside", L"file"},
    {"a full temporary folder", "beside", nullptr, "small"},
    {"a read-only temporary folder", "beside", nullptr, "read-only"},
    {"a missing temporary folder", "unpacked", L"not\\there"},
    {"a long temporary folder", "beside", kLongName.c_str()},
    {"an engine that hangs", nullptr, nullptr, nullptr, "hangs"},
};

class Faults {
  public:
    Faults(int kills, int copies) : kills_(kills), copies_(copies) {}

    bool Run() {
        if (!HasDisks()) std::printf("nothing can be mounted here, so faulty disks are not tried\n");
        Repeat("the engine is killed", [this](int) { return KillEngine(); });
        KillHost();
        Report("copies start at once", copies_, StartCopies());
        for (const Fault& fault :
             std::span(kFaults).first(std::min<size_t>(std::size(kFaults), 2 * kills_))) {
            if (!fault.disk || HasDisks()) Report(fault.what, 1, Try(fault));
        }
        if (HasDisks()) Report("a read-only application", 1, RunReadOnly());
        return good_ && testing::UnitTest::GetInstance()->ad_hoc_test_result().Passed();
    }

  private:
    // The host restarts an engine that is killed during its start.
    std::string KillEngine() {
        Subject subject(packed_);
        subject.program.Start();
        const auto isStarted = [&] {
            return std::ranges::any_of(subject.engine.Snapshot(), &Process::IsEngine);
        };
        if (!WaitFor(isStarted, kTimeout)) return "no engine is started";
        Sleep(Random(2000));
        const long shown = subject.Count("unpacked");
        subject.engine.Kill(&Process::IsEngine);
        const auto isOver = [&] { return !subject.Notice().empty() || subject.Count("unpacked") > shown; };
        if (!WaitFor(isOver, kTimeout)) return "neither a notice nor a page";
        return subject.End();
    }

    // A killed host leaves its unpacked folder, which the next start removes.
    void KillHost() {
        Subject subject(packed_);
        Repeat("the host is killed", [&](int) {
            subject.program.Start();
            if (Random(2) == 0 && !subject.Shows("unpacked")) return std::string("no page");
            Sleep(Random(1500));
            subject.program.Kill();
            return subject.LeftOfEngine();
        });
        std::printf("left for the next start: %s\n", UnpackedIn(subject.program.Temp()).c_str());
        subject.program.Start();
        Report("the host starts after that", 1, subject.Shows("unpacked") ? subject.End() : "no page");
    }

    // Each has a temporary folder of its own: two that start in one tick of the system's clock would use one
    // name there, and the second would find no page.
    std::string StartCopies() {
        std::vector<std::unique_ptr<Subject>> subjects;
        subjects.reserve(static_cast<size_t>(copies_));
        for (int i = 0; i < copies_; ++i)
            subjects.push_back(std::make_unique<Subject>(packed_));
        for (const auto& subject : subjects)
            subject->program.Start();
        for (const auto& subject : subjects) {
            if (!subject->Shows("unpacked")) return "no page";
        }
        std::string problem;
        for (const auto& subject : subjects)
            problem += subject->End();
        return problem;
    }

    std::string Try(const Fault& fault) {
        Subject subject(packed_);
        Program& program = subject.program;
        fs::path temp = program.Temp();
        if (fault.temp) temp = *fault.temp ? fs::path(program.Folder() / fault.temp) : fs::path();
        if (fault.disk) temp = disks_ / fault.disk;
        program.Folder().Write(L"file", "");
        program.SetVariable(L"TEMP", temp.wstring());
        if (fault.engine) {
            program.SetVariable(L"TARVIK_BROWSER", L"" BROKEN_ENGINE);
            program.SetVariable(L"TARVIK_FAULT", Widen(fault.engine));
        }
        program.Start();
        if (fault.page && !subject.Shows(fault.page)) return "no page";
        if (!fault.page && !WaitFor([&] { return !subject.Notice().empty(); }, kTimeout)) return "no notice";
        const std::string problem = subject.End();
        return problem + UnpackedIn(temp.empty() ? fs::path(program.Work()).root_path() : temp);
    }

    std::string RunReadOnly() {
        fs::copy(packed_.Path().parent_path() / L"resource", disks_ / L"writable" / L"resource");
        Subject subject(packed_);
        subject.program.Start(L"-d \"" + (disks_ / L"read-only").wstring() + L"\"");
        return subject.Shows("beside") ? subject.End() : "no page";
    }

    bool HasDisks() const { return !disks_.empty(); }

    void Repeat(const char* what, const std::function<std::string(int)>& step) {
        std::string problems;
        for (int i = 0; i < kills_; ++i) {
            if (const std::string problem = step(i); !problem.empty())
                problems += "\n  " + std::to_string(i + 1) + ": " + problem;
        }
        Report(what, kills_, problems);
    }

    void Report(const char* what, int times, const std::string& problem) {
        std::printf("%s, %d: %s\n", what, times, problem.empty() ? "nothing left" : problem.c_str());
        std::fflush(stdout);
        good_ &= problem.empty();
    }

    static fs::path Disks() {
        const wchar_t* const path = _wgetenv(L"TARVIK_FAULTY_DISKS");
        return path ? path : L"";
    }

    const int kills_;
    const int copies_;
    const fs::path disks_ = Disks();
    const TempFolder folder_;
    const PackedProgram packed_{folder_.Path()};
    bool good_ = true;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (!tarvik::EngineProcesses::AreVisible()) {
        std::printf("The engine's processes are visible under Wine only.\n");
        return 77;
    }
    // RunSoak starts the desktop, which otherwise would end with the first program that is killed.
    return tarvik::RunSoak(argc, argv, {30, 10, 1}, [](const std::vector<int>& numbers) {
        tarvik::SeedRandom(numbers[2]);
        return tarvik::Faults(numbers[0], numbers[1]).Run();
    });
}
