// soak_members [CALLS [SEED [FIRST ROUND]]]: calls every member of every plug-in at random. The page in
// tests/soak/members makes the calls, with arguments of every type. Each round has its own window, files and
// seed, so a round can be repeated alone. Prints statistics, and after a crash or a hang the last calls.
// Fails on these, on an unexpected dialog, and if a round leaks objects or threads.

#include <windows.h>
#include <ole2.h>

#include <atomic>
#include <cstdio>
#include <deque>
#include <exception>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <string_view>

#include "atl/module.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "script/worker_apartment.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"
#include "tarvik/text.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/course.h"
#include "tests/soak/engine_census.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"
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

struct Tally {
    int calls = 0;
    int failures = 0;
};
std::map<std::string, Tally> tallies;
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
    Integer Seed() { return {current.seed}; }
    Integer Calls() { return {kCallsOfARound}; }
    void Note(BSTR call) {
        ++current.calls;
        current.last.push_back(Narrow(Bstr::View(call)));
        if (current.last.size() > kLastCalls) current.last.pop_front();
    }
    // A line for each member: its name, the number of calls, and the number of those that threw.
    void Done(BSTR tally) {
        std::istringstream lines(Narrow(Bstr::View(tally)));
        std::string type, member, use;
        for (Tally one; lines >> type >> member >> use >> one.calls >> one.failures;) {
            Tally& all = tallies[type + ' ' + member + ' ' + use];
            all.calls += one.calls;
            all.failures += one.failures;
        }
        current.done = true;
    }
};

constexpr Member<MembersPlugin> kMembers[] = {
    Method<&MembersPlugin::Folder>(-10000, L"folder"), Method<&MembersPlugin::Server>(-9999, L"server"),
    Method<&MembersPlugin::Seed>(-9998, L"seed"),      Method<&MembersPlugin::Calls>(-9997, L"calls"),
    Method<&MembersPlugin::Note>(-9996, L"note"),      Method<&MembersPlugin::Done>(-9995, L"done"),
};

std::span<const Member<MembersPlugin>> MembersPlugin::Members() {
    return kMembers;
}

[[maybe_unused]] const bool registered = RegisterBuiltIn<MembersPlugin>(L"members", TVK::kRetainedPlugin);

// No call may open a dialog. If one does, it is cancelled, so that the round continues.
BOOL CALLBACK CancelDialog(HWND window, LPARAM) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) != L"#32770" || !IsWindowVisible(window)) return TRUE;
    wchar_t title[100] = {};
    GetWindowTextW(window, title, static_cast<int>(std::size(title)));
    std::printf("a dialog \"%ls\"\n", title);
    PrintRound("it opened");
    ++dialogs;
    PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    return TRUE;
}

void CALLBACK OnPause(HWND, UINT, UINT_PTR, DWORD) {
    Watch::Step();
    EnumThreadWindows(GetCurrentThreadId(), CancelDialog, 0);
}

BOOL CALLBACK CloseBrowser(HWND window, LPARAM spared) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    if (std::wstring_view(name) == L"TarvikBrowserWindow" && window != reinterpret_cast<HWND>(spared))
        DestroyWindow(window);
    return TRUE;
}

// The files that members use, and the current folder, both deep inside a temporary folder.
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
    }

    std::wstring Page() const { return page_ + L"\\index.html"; }

    void Renew() const {
        Clear();
        for (const std::wstring& folder : {page_, other_}) {
            std::error_code ignored;
            fs::create_directories(folder, ignored);
            fs::copy(ExecutableFolder() / "soak_members", folder,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing, ignored);
            const std::wstring name = folder.substr(folder_.Path().size() + 1);
            for (const wchar_t* file : {L"\\tree\\a.txt", L"\\tree\\inner\\b.txt"})
                folder_.Write(name + file, std::string(100'000, 'x'));
            folder_.Write(name + L"\\garden.zip",
                          WriteArchive({{"a.txt", std::string(100'000, '1')}, {"inner/b.txt", "2"}}));
        }
    }

  private:
    static fs::path ExecutableFolder() {
        wchar_t path[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        return fs::path(path).parent_path();
    }
    // Files in use stay until the next round.
    void Clear() const {
        for (const std::wstring& folder : {page_, other_}) {
            std::error_code ignored;
            for (const auto& entry : fs::directory_iterator(folder, ignored))
                fs::remove_all(entry.path(), ignored);
        }
        RegDeleteTreeW(HKEY_CURRENT_USER, kKey);
    }

    const TempFolder folder_;
    const std::wstring page_ = folder_ / L"1\\2\\3\\4\\5\\6\\page";
    const std::wstring other_ = folder_ / L"1\\2\\3\\4\\5\\6\\current";
};

class Window {
  public:
    explicit Window(const std::wstring& page)
        : browser_(MakeCom<CWebBrowser>()), window_(browser_->CreateHidden(nullptr, page.c_str())) {}
    ~Window() {
        if (IsOpen()) DestroyWindow(window_);
    }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    bool IsOpen() const { return browser_->GetWindowHandle() != nullptr; }
    HWND Handle() const { return window_; }

  private:
    ComPtr<CWebBrowser> browser_;
    HWND window_;
};

class Soak {
  public:
    Soak() {
        appModule.AddMessageLoop(&loop_);
        addressOfServer = server_.Url();
    }
    ~Soak() {
        appModule.RemoveMessageLoop();
        KillTimer(nullptr, pause_);
    }

    bool Run(int calls, int seed, int first) {
        const Window quiet(folder_.Write(L"quiet.html", "<!doctype html>"));
        PumpUntil([] { return false; }, std::chrono::seconds(3));
        census_.WatchPage(control_.Engine());
        threads_ = CountThreads();
        objects_ = liveComObjects;
        Course course("rounds", [this] { return Now(); });
        const int rounds = std::max(2, calls / kCallsOfARound);
        const int warmUp = std::min(10, rounds / 2);
        const bool good = course.Run(warmUp, rounds - warmUp, [&](int round) {
            return RunRound(seed * 1000 + first + round, quiet.Handle(), round % 2 == 1);
        });
        census_.ForgetPage();
        PrintTallies();
        return good && dialogs == 0;
    }

  private:
    static long CountThreads() { return ResourceCounts::Now().Take("threads"); }

    // Wine caches some of these, and threads with their handles and memory.
    Reading Now() {
        constexpr double kThreadsRise = 3;
        Reading reading = census_.Now();
        for (const auto& [what, ofThread] : {std::pair("handles", 2.0), std::pair("memory KB", 1024.0)}) {
            const auto level = std::ranges::find(reading.levels, std::string_view(what), &Level::what);
            level->rise += kThreadsRise * ofThread;
        }
        for (const auto& [what, rise] : {std::pair("GDI handles", 40.0), std::pair("USER handles", 5.0),
                                         std::pair("threads", kThreadsRise)}) {
            const auto count = static_cast<double>(reading.counts.Take(what));
            reading.levels.push_back({what, count, rise});
        }
        return reading;
    }

    bool RunRound(int seed, HWND quiet, bool closesEarly) {
        current = {seed};
        workspace_.Renew();
        {
            const Window window(workspace_.Page());
            const bool good = PumpUntil([&] { return current.done || !window.IsOpen(); }, kTimeout);
            if (!good || !current.done)
                return PrintRound(good ? "the window was destroyed" : "the page hangs"), false;
            if (!closesEarly) AwaitThreads();
        }
        EnumThreadWindows(GetCurrentThreadId(), CloseBrowser, reinterpret_cast<LPARAM>(quiet));
        if (AwaitThreads() && AwaitObjects()) return true;
        std::printf("%ld threads and %ld COM objects more than before\n", CountThreads() - threads_,
                    liveComObjects - objects_);
        return PrintRound("a leak"), false;
    }

    // Waits for asynchronous operations. The system caches some threads for a while.
    bool AwaitThreads() const {
        constexpr long kCached = 12;
        return PumpUntil([this] { return CountThreads() <= threads_ + kCached; }, kTimeout);
    }

    bool AwaitObjects() const {
        return PumpUntil([this] { return liveComObjects <= objects_; }, kTimeout);
    }

    static void PrintTallies() {
        int calls = 0, failures = 0;
        for (const auto& [member, tally] : tallies) {
            calls += tally.calls;
            failures += tally.failures;
            if (tally.calls == tally.failures)
                std::printf("always threw: %s (%d)\n", member.c_str(), tally.calls);
        }
        std::printf("%zu uses of members, %d calls, of which %d threw\n", tallies.size(), calls, failures);
    }

    CMessageLoop loop_;
    const UINT_PTR pause_ = SetTimer(nullptr, 0, kPause, OnPause);
    const WorkerApartment workers_;
    const TempFolder folder_;
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
    EngineCensus census_;
    const PageControlClass control_;
    long threads_ = 0;
    long objects_ = 0;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    OleInitialize(nullptr);
    SetUnhandledExceptionFilter(tarvik::OnCrash);
    std::set_terminate([] {
        tarvik::PrintRound("std::terminate was called");
        TerminateProcess(GetCurrentProcess(), 2);
    });
    tarvik::Watch::Start();
    const int calls = argc > 1 ? _wtoi(argv[1]) : 20000;
    const int seed = argc > 2 ? _wtoi(argv[2]) : 1;
    const int first = argc > 3 ? _wtoi(argv[3]) : 0;
    bool good = false;
    const HRESULT status = tarvik::Guard([&] { good = tarvik::Soak().Run(calls, seed, first); });
    if (FAILED(status)) std::printf("failed with 0x%08lX\n", static_cast<unsigned long>(status));
    OleUninitialize();
    return good ? 0 : 1;
}
