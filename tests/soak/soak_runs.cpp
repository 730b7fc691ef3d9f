// soak_runs [ROUNDS [SEED]]: runs asynchronous members of all plug-ins in parallel. Some operations succeed,
// some fail, some are cancelled; in every second round their window is closed meanwhile. Fails if an expected
// callback is not called or an unexpected one is, and if resources leak in the second half.

#include <ole2.h>

#include <cstdio>
#include <memory>
#include <random>
#include <vector>

#include "host/web_browser.h"
#include "script/worker_apartment.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/course.h"
#include "tests/support/async_operation.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr int kRuns = 50;
constexpr auto kTimeout = std::chrono::seconds(60);
constexpr ULONG kFileSize = 300'000;

enum class End { kSuccess, kFailure, kSilence };

// The window and the files of one round.
class Workspace {
  public:
    Workspace() {
        window_ = browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str());
        for (const wchar_t* name : {L"tree\\a", L"tree\\b", L"tree\\inner\\c", L"there\\a"})
            folder_.Write(name, std::string(kFileSize, 'x'));
        folder_.Write(L"archive.zip",
                      WriteArchive({{"one", std::string(kFileSize, '1')}, {"two", std::string(9, '2')}}));
    }
    ~Workspace() { CloseWindow(); }

    void CloseWindow() {
        if (IsWindow(window_)) DestroyWindow(window_);
    }
    ComPtr<IDispatch> Plugin(const wchar_t* name) const {
        ComPtr<IDispatch> plugin;
        browser_->GetPlugin(name, plugin.GetAddressOf());
        return plugin;
    }
    std::wstring Path(const wchar_t* name) const { return folder_ / name; }
    std::wstring NewPath() { return folder_ / (L"new" + std::to_wstring(++created_)); }
    std::wstring NewFile() {
        return folder_.Write(L"new" + std::to_wstring(++created_), std::string(kFileSize, 'y'));
    }

  private:
    const TempFolder folder_;
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    HWND window_ = nullptr;
    int created_ = 0;
};

// An operation, and its expected end.
struct Operation {
    const wchar_t* plugin;
    const wchar_t* member;
    const wchar_t* source;  // null: a new file
    End end;
    bool isCancelled = false;
    const wchar_t* dest = nullptr;  // null: a new path
};

constexpr wchar_t kStream[] = L"stream";  // as a destination

constexpr Operation kOperations[] = {
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

// Sends a whole file, or fewer bytes than its Content-Length.
std::wstring UrlOf(const wchar_t* name) {
    static const WebServer server([](const WebExchange& exchange) {
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kFileSize) + "\r\n\r\n");
        exchange.Send(std::string(exchange.Path() == "/whole" ? kFileSize : 100, 'x'));
    });
    return server.Url(name);
}

// The object that has the member.
ComPtr<IDispatch> ObjectOf(const Operation& operation, Workspace& workspace) {
    const auto plugin = workspace.Plugin(operation.plugin);
    if (operation.plugin != std::wstring(L"http")) return plugin;
    const auto client = CallMember(plugin.Get(), L"createClient");
    return ComPtr<IDispatch>(client.value.pdispVal);
}

// The options of all members; each reads its own.
OptionObject OptionsOf(const Operation& operation, Workspace& workspace, IDispatch* object) {
    const std::wstring source = operation.source ? workspace.Path(operation.source) : workspace.NewFile();
    const std::wstring dest = operation.dest ? workspace.Path(operation.dest) : workspace.NewPath();
    OptionObject options;
    options.Set(L"srcPath", source.c_str()).Set(L"destPath", dest.c_str()).Set(L"path", source.c_str());
    options.Set(L"len", Variant::UI4(kFileSize));
    if (operation.plugin == std::wstring(L"http")) options.Set(L"url", UrlOf(operation.source).c_str());
    if (operation.member == std::wstring(L"readAsync")) {
        CallMember(object, L"open", source.c_str(), L"r");
    } else if (operation.member == std::wstring(L"writeAsync")) {
        CallMember(object, L"open", dest.c_str(), L"wn");
        const auto content = workspace.Plugin(L"stream");
        CallMember(content.Get(), L"setSize", static_cast<int>(kFileSize));
        options.Set(L"src", content);
    } else {
        options.Set(L"src", source.c_str()).Set(L"dest", dest.c_str());
        if (operation.dest == kStream) options.Set(L"dest", workspace.Plugin(L"stream"));
    }
    return options;
}

std::unique_ptr<AsyncOperation> Start(const Operation& operation, Workspace& workspace) {
    const auto object = ObjectOf(operation, workspace);
    return std::make_unique<AsyncOperation>(object.Get(), operation.member,
                                            OptionsOf(operation, workspace, object.Get()),
                                            [cancel = operation.isCancelled](const Recorder::Record&) {
                                                return cancel ? Variant::Bool(false) : Variant();
                                            });
}

// Whether the right function was called once, and the other one not at all.
bool HasExpectedEnd(const Operation& operation, const std::string& text) {
    const bool isExpected = operation.end == End::kSilence ? text.empty()
                            : operation.end == End::kFailure
                                ? text.rfind("fail: ") == 0
                                : text.rfind("success: ") == 0 && text.find("fail: ") == text.npos;
    if (!isExpected) std::printf("%ls ended with \"%s\"\n", operation.member, text.c_str());
    return isExpected;
}

bool RunRound(std::mt19937& random, bool closesWindow) {
    Workspace workspace;
    std::vector<std::pair<const Operation&, std::unique_ptr<AsyncOperation>>> runs;
    for (int i = 0; i < kRuns; ++i) {
        const Operation& operation = kOperations[random() % std::size(kOperations)];
        runs.emplace_back(operation, Start(operation, workspace));
    }
    if (closesWindow) workspace.CloseWindow();
    const auto isOver = [](const auto& run) { return run.second->IsComplete(); };
    bool good = PumpUntil([&] { return std::ranges::all_of(runs, isOver); }, kTimeout);
    if (!good) std::printf("%d runs ended\n", static_cast<int>(std::ranges::count_if(runs, isOver)));
    for (const auto& [operation, run] : runs)
        good &= HasExpectedEnd(operation, run->Result().text);
    return good;
}

// Waits a moment first, because threads and windows may still be ending.
Reading Settled() {
    constexpr double kCached = 5;  // the system caches a handle now and then; an operation would leak more
    PumpUntil([] { return false; }, std::chrono::milliseconds(300));
    return {ResourceCounts::Now(), {{"handles", static_cast<double>(CountHandles()), kCached}}};
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
