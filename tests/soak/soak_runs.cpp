// Asynchronous members of all plug-ins side by side, again and again: `soak_runs [rounds [seed]]`. Some
// succeed, some fail, some are cancelled, and in every second round their window goes meanwhile. Fails when a
// callback comes that should not or does not come that should, and when more of anything is left than at half
// time.

#include "tests/support/web_server.h"

#include <ole2.h>

#include <cstdio>
#include <memory>
#include <random>
#include <vector>

#include "host/web_browser.h"
#include "script/worker_apartment.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/course.h"
#include "tests/support/async_run.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kRuns = 50;
constexpr auto kTimeout = std::chrono::seconds(60);
constexpr ULONG kFileSize = 300'000;

enum class End { kSuccess, kFailure, kSilence };

// A window, and files of one round.
class Ground {
  public:
    Ground() {
        window_ = browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str());
        for (const wchar_t* name : {L"tree\\a", L"tree\\b", L"tree\\inner\\c", L"there\\a"})
            folder_.Write(name, std::string(kFileSize, 'x'));
        folder_.Write(L"archive.zip",
                      WriteArchive({{"one", std::string(kFileSize, '1')}, {"two", std::string(9, '2')}}));
    }
    ~Ground() { CloseWindow(); }

    void CloseWindow() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    ComPtr<IDispatch> Plugin(const wchar_t* name) const {
        ComPtr<IDispatch> plugin;
        browser_->GetPlugin(name, plugin.GetAddressOf());
        return plugin;
    }
    std::wstring Path(const wchar_t* name) const { return folder_ / name; }
    std::wstring NewPath() { return folder_ / (L"new" + std::to_wstring(++made_)); }
    std::wstring NewFile() {
        return folder_.Write(L"new" + std::to_wstring(++made_), std::string(kFileSize, 'y'));
    }

  private:
    const TempFolder folder_;
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    HWND window_ = nullptr;
    int made_ = 0;
};

// What is asked of a plug-in, and how it must end.
struct Errand {
    const wchar_t* plugin;
    const wchar_t* member;
    const wchar_t* source;  // null: a new file
    End end;
    bool isCancelled = false;
    const wchar_t* dest = nullptr;  // null: a new place
};

constexpr wchar_t kStream[] = L"stream";  // as a destination

constexpr Errand kErrands[] = {
    {L"minizip", L"zip", L"tree", End::kSuccess},
    {L"minizip", L"zip", L"tree", End::kSuccess, false, kStream},
    {L"minizip", L"zip", L"none", End::kFailure},
    {L"minizip", L"zip", L"tree", End::kFailure, true},
    {L"minizip", L"unzip", L"archive.zip", End::kSuccess},
    {L"minizip", L"unzip", L"none", End::kFailure},
    {L"minizip", L"unzip", L"archive.zip", End::kFailure, true},
    {L"file", L"copyAsync", L"tree", End::kSuccess},
    {L"file", L"copyAsync", L"none", End::kFailure},
    {L"file", L"copyAsync", L"tree", End::kFailure, false, L"there"},
    {L"file", L"moveAsync", nullptr, End::kSuccess},
    {L"file", L"enumFiles", L"tree", End::kSuccess},
    {L"file", L"enumFiles", L"tree", End::kSuccess, true},
    {L"fileIO", L"readAsync", L"tree\\a", End::kSuccess},
    {L"fileIO", L"readAsync", L"none", End::kFailure},
    {L"fileIO", L"readAsync", L"tree\\a", End::kSilence, true},
    {L"fileIO", L"writeAsync", L"tree\\a", End::kSuccess},
    {L"fileIO", L"writeAsync", L"tree\\a", End::kSilence, true},
    {L"http", L"downloadToFile", L"whole", End::kSuccess},
    {L"http", L"downloadToFile", L"part", End::kFailure},
    {L"http", L"downloadToFile", L"whole", End::kSilence, true},
};

// Sends a file, or less of it than it says.
std::wstring UrlOf(const wchar_t* name) {
    static const WebServer server([](const WebExchange& exchange) {
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kFileSize) + "\r\n\r\n");
        exchange.Send(std::string(exchange.Path() == "/whole" ? kFileSize : 100, 'x'));
    });
    return server.Url(name);
}

ComPtr<IDispatch> WorkerOf(const Errand& errand, Ground& ground) {
    const auto plugin = ground.Plugin(errand.plugin);
    if (errand.plugin != std::wstring(L"http")) return plugin;
    const auto client = CallMember(plugin.Get(), L"createClient");
    return ComPtr<IDispatch>(client.value.pdispVal);
}

// Each member finds its own among them.
OptionObject OptionsOf(const Errand& errand, Ground& ground, IDispatch* plugin) {
    const std::wstring source = errand.source ? ground.Path(errand.source) : ground.NewFile();
    const std::wstring dest = errand.dest ? ground.Path(errand.dest) : ground.NewPath();
    OptionObject options;
    options.Set(L"srcPath", source.c_str()).Set(L"destPath", dest.c_str()).Set(L"path", source.c_str());
    options.Set(L"len", Variant::UI4(kFileSize));
    if (errand.plugin == std::wstring(L"http")) options.Set(L"url", UrlOf(errand.source).c_str());
    if (errand.member == std::wstring(L"readAsync")) {
        CallMember(plugin, L"open", source.c_str(), L"r");
    } else if (errand.member == std::wstring(L"writeAsync")) {
        CallMember(plugin, L"open", dest.c_str(), L"wn");
        const auto content = ground.Plugin(L"stream");
        CallMember(content.Get(), L"setSize", static_cast<int>(kFileSize));
        options.Set(L"src", content);
    } else {
        options.Set(L"src", source.c_str()).Set(L"dest", dest.c_str());
        if (errand.dest == kStream) options.Set(L"dest", ground.Plugin(L"stream"));
    }
    return options;
}

std::unique_ptr<AsyncRun> Start(const Errand& errand, Ground& ground) {
    const auto plugin = WorkerOf(errand, ground);
    return std::make_unique<AsyncRun>(plugin.Get(), errand.member, OptionsOf(errand, ground, plugin.Get()),
                                      [cancel = errand.isCancelled](const Recorder::Record&) {
                                          return cancel ? Variant::Bool(false) : Variant();
                                      });
}

// With one call of the right function and none of the other.
bool EndedAsItMust(const Errand& errand, const std::string& text) {
    const bool ended = errand.end == End::kSilence ? text.empty()
                       : errand.end == End::kFailure
                           ? text.rfind("fail: ") == 0
                           : text.rfind("success: ") == 0 && text.find("fail: ") == text.npos;
    if (!ended) std::printf("%ls ended with \"%s\"\n", errand.member, text.c_str());
    return ended;
}

bool RunRound(std::mt19937& random, bool closesWindow) {
    Ground ground;
    std::vector<std::pair<const Errand&, std::unique_ptr<AsyncRun>>> runs;
    for (int i = 0; i < kRuns; ++i) {
        const Errand& errand = kErrands[random() % std::size(kErrands)];
        runs.emplace_back(errand, Start(errand, ground));
    }
    if (closesWindow) ground.CloseWindow();
    const auto isOver = [](const auto& run) { return run.second->IsOver(); };
    bool good = PumpUntil([&] { return std::ranges::all_of(runs, isOver); }, kTimeout);
    if (!good) std::printf("%d runs ended\n", static_cast<int>(std::ranges::count_if(runs, isOver)));
    for (const auto& [errand, run] : runs)
        good &= EndedAsItMust(errand, run->End().text);
    return good;
}

// Threads and windows that have been told to end need a moment.
Reading Settled() {
    constexpr double kKeptBySystem =
        5;  // it keeps a handle for later now and then; a run uses more than that
    PumpUntil([] { return false; }, std::chrono::milliseconds(300));
    return {Holdings::Now(), {{"handles", static_cast<double>(CountHandles()), kKeptBySystem}}};
}

int Soak(int rounds, unsigned seed) {
    const WorkerApartment workers;
    std::mt19937 random(seed);
    Course course("rounds", Settled);
    const auto round = [&](int step) { return RunRound(random, step % 2 == 1); };
    return course.Run(rounds / 2, rounds - rounds / 2, round) ? 0 : 1;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    const int result = tarvik::Soak(argc > 1 ? _wtoi(argv[1]) : 200, argc > 2 ? _wtoi(argv[2]) : 1);
    OleUninitialize();
    return result;
}
