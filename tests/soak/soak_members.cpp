// soak_members [CALLS [SEED [FIRST ROUND]]]: calls every member of every plug-in at random. The page in
// tests/soak/members makes the calls, with arguments of every type. Each round has its own window, files and
// seed, so a round can be repeated alone. Prints, after a crash or a hang, the last calls.
// Fails on these, on an unexpected dialog, and if a round leaks objects or threads.

#include <windows.h>

#include <atomic>
#include <cstdio>
#include <deque>
#include <exception>
#include <filesystem>
#include <set>
#include <string>

#include "base/path.h"
#include "host/plugin_registry/plugin_base.h"
#include "script/worker_apartment.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/page_soak.h"
#include "tests/support/screen.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

constexpr int kCallsOfARound = 500;
constexpr auto kTimeout = std::chrono::seconds(120);
constexpr size_t kLastCalls = 50;
constexpr UINT kPause = 200;
constexpr wchar_t kKey[] = L"Software\\Tarvik soak members";

// The current round.
struct Round {
    int seed = 0;
    int calls = 0;
    bool done = false;
    std::deque<std::string> last;
} current;

int allCalls = 0;
int allFailures = 0;
int dialogs = 0;

void PrintRound(const char* what) {
    std::printf("%s in the round of seed %d, after %d calls, of which the last are:\n", what, current.seed,
                current.calls);
    for (const std::string& call : current.last)
        std::printf("    %s\n", call.c_str());
    std::fflush(stdout);
}

LONG CALLBACK OnCrash(EXCEPTION_POINTERS* exception) {
    const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
    std::printf("exception 0x%08lX at %p, thread %lu\n", record.ExceptionCode, record.ExceptionAddress,
                GetCurrentThreadId());
    PrintRound("a crash");
    TerminateProcess(GetCurrentProcess(), 2);
    return EXCEPTION_CONTINUE_SEARCH;
}

// Terminates the program if the main thread hangs in native code.
class Watch {
  public:
    static void Start() { CloseHandle(CreateThread(nullptr, 0, Run, nullptr, 0, nullptr)); }
    static void Step() { ++steps_; }

  private:
    static DWORD WINAPI Run(void*) {
        for (int before = steps_;; before = steps_) {
            Sleep(static_cast<DWORD>(2 * std::chrono::milliseconds(kTimeout).count()));
            if (steps_ != before) continue;
            PrintRound("the main thread hangs");
            TerminateProcess(GetCurrentProcess(), 3);
        }
    }
    static inline std::atomic<int> steps_ = 0;
};

std::wstring folderOfPage;
std::wstring addressOfServer;

// The plug-in `members`, which the page uses.
class MembersPlugin : public TablePlugin<MembersPlugin> {
  public:
    static constexpr char kClassName[] = "MembersPlugin";
    static std::span<const Member<MembersPlugin>> Members();

    Variant Folder() { return Variant::Text(folderOfPage); }
    Variant Server() { return Variant::Text(addressOfServer); }
    int Seed() { return current.seed; }
    int Calls() { return kCallsOfARound; }
    void Note(BSTR call) {
        ++current.calls;
        current.last.push_back(Narrow(Bstr::View(call)));
        if (current.last.size() > kLastCalls) current.last.pop_front();
    }
    // The number of calls, and of those that threw.
    void Done(AnyInt32 calls, AnyInt32 failures) {
        allCalls += calls.value;
        allFailures += failures.value;
        current.done = true;
    }
};

constexpr Member<MembersPlugin> kMembers[] = {
    Method<&MembersPlugin::Folder>(L"folder", -10000), Method<&MembersPlugin::Server>(L"server", -9999),
    Method<&MembersPlugin::Seed>(L"seed", -9998),      Method<&MembersPlugin::Calls>(L"calls", -9997),
    Method<&MembersPlugin::Note>(L"note", -9996),      Method<&MembersPlugin::Done>(L"done", -9995),
};

std::span<const Member<MembersPlugin>> MembersPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<MembersPlugin>(L"members", TVK::kRetainedPlugin);

fs::path ProgramFolder() {
    return fs::path(ExecutablePath()).parent_path();
}

// The files that members use, and the current folder, both deep inside a temporary folder. A window without a
// page resolves relative paths against the program's folder, so that what is created there is removed at the
// end.
class Workspace {
  public:
    Workspace() {
        folderOfPage = page_;
        Renew();
        SetCurrentDirectoryW(other_.c_str());
    }
    ~Workspace() {
        SetCurrentDirectoryW(fs::temp_directory_path().c_str());
        Clear();
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(ProgramFolder())) {
            if (!ofProgram_.contains(entry.path())) fs::remove_all(entry.path(), ignored);
        }
    }

    std::wstring Page() const { return page_ + L"\\index.html"; }

    void Renew() const {
        Clear();
        for (const std::wstring& folder : {page_, other_}) {
            std::error_code ignored;
            fs::create_directories(folder, ignored);
            fs::copy(ProgramFolder() / "soak_members", folder,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing, ignored);
            const std::wstring name = folder.substr(folder_.Path().size() + 1);
            for (const wchar_t* file : {L"\\tree\\a.txt", L"\\tree\\inner\\b.txt"})
                folder_.Write(name + file, std::string(100'000, 'x'));
            folder_.Write(name + L"\\garden.zip",
                          WriteArchive({{"a.txt", std::string(100'000, '1')}, {"inner/b.txt", "2"}}));
        }
    }

  private:
    // Files in use stay until the next round.
    void Clear() const {
        for (const std::wstring& folder : {page_, other_}) {
            std::error_code ignored;
            for (const auto& entry : fs::directory_iterator(folder, ignored))
                fs::remove_all(entry.path(), ignored);
        }
        RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
    }

    const std::set<fs::path> ofProgram_{fs::directory_iterator(ProgramFolder()), {}};
    const TempFolder folder_;
    const std::wstring page_ = folder_ / L"1\\2\\3\\4\\5\\6\\page";
    const std::wstring other_ = folder_ / L"1\\2\\3\\4\\5\\6\\current";
};

class Members : public PageSoak {
  public:
    Members() {
        addressOfServer = server_.Url();
        // Wine caches some of these, and threads with their handles and memory.
        constexpr double kThreadsRise = 3;
        monitor_.AllowRise("threads", kThreadsRise);
        monitor_.AllowRise("handles", 2 * kThreadsRise);
        monitor_.AllowRise("memory KB", 1024 * kThreadsRise);
        monitor_.AllowRise("GDI handles", 40);
        monitor_.AllowRise("USER handles", 5);
    }
    ~Members() { KillTimer(nullptr, pause_); }

    bool Run(int calls, int seed, int first) {
        const bool good = RunBesideAnIdlePage([&](const BrowserWindow& idle) {
            threads_ = CountThreads();
            objects_ = detail::liveComObjects;
            const int rounds = std::max(2, calls / kCallsOfARound);
            const int warmUp = std::min(10, rounds / 2);
            return SoakLoop("rounds", [this] { return monitor_.Now(); })
                .Run(warmUp, rounds - warmUp, [&](int round) {
                    return RunRound(seed * 1000 + first + round, idle.Handle(), round % 2 == 1);
                });
        });
        std::printf("%d calls, of which %d threw\n", allCalls, allFailures);
        return good && dialogs == 0;
    }

  private:
    static long CountThreads() { return ResourceCounts::Now().Take("threads"); }

    // No call may open a dialog.
    static void CALLBACK OnPause(HWND, UINT, UINT_PTR, DWORD) {
        Watch::Step();
        CancelDialogs([](HWND dialog) {
            std::printf("a dialog \"%ls\"\n", TextOf(dialog).c_str());
            PrintRound("it opened");
            ++dialogs;
        });
    }

    bool RunRound(int seed, HWND idle, bool closesEarly) {
        current = {seed};
        workspace_.Renew();
        {
            const BrowserWindow window(workspace_.Page());
            const bool good = PumpUntil([&] { return current.done || !window.IsOpen(); }, kTimeout);
            if (!good || !current.done)
                return PrintRound(good ? "the window was destroyed" : "the page hangs"), false;
            if (!closesEarly) AwaitThreads();
        }
        for (const HWND window : TopWindows(L"TarvikBrowserWindow")) {
            if (window != idle) DestroyWindow(window);
        }
        if (AwaitThreads() && PumpUntil([this] { return detail::liveComObjects <= objects_; }, kTimeout))
            return true;
        std::printf("%ld threads and %ld COM objects more than before\n", CountThreads() - threads_,
                    detail::liveComObjects - objects_);
        return PrintRound("a leak"), false;
    }

    // Waits for asynchronous operations. The system caches some threads for a while.
    bool AwaitThreads() const {
        constexpr long kCached = 12;
        return PumpUntil([this] { return CountThreads() <= threads_ + kCached; }, kTimeout);
    }

    const UINT_PTR pause_ = SetTimer(nullptr, 0, kPause, OnPause);
    const WorkerApartment workers_;
    const Workspace workspace_;
    // Sends a file at once or slowly, a part of one, or an error.
    const WebServer server_{[](const WebExchange& exchange) {
        if (exchange.Path() == "/none") return exchange.Respond("", "404 Not Found");
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n");
        const bool isLate = exchange.Path() == "/late";
        for (int chunk = 0; chunk < (exchange.Path() == "/part" ? 3 : 10); ++chunk) {
            if (isLate) Sleep(30);
            if (!exchange.Send(std::string(10'000, 'x'))) return;
        }
    }};
    long threads_ = 0;
    long objects_ = 0;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    SetUnhandledExceptionFilter(tarvik::OnCrash);
    std::set_terminate([] {
        tarvik::PrintRound("std::terminate was called");
        TerminateProcess(GetCurrentProcess(), 2);
    });
    tarvik::Watch::Start();
    return tarvik::RunSoak(argc, argv, {20000, 1, 0}, [](const std::vector<int>& numbers) {
        return tarvik::Members().Run(numbers[0], numbers[1], numbers[2]);
    });
}
