// soak_runs [ROUNDS [SEED]]: runs asynchronous members of all plug-ins in parallel. Some operations succeed,
// some fail, some are cancelled; in every second round their window is closed meanwhile. Fails if an expected
// callback is not called or an unexpected one is, and if resources leak in the second half.

#include <windows.h>

#include <cstdio>
#include <memory>
#include <optional>
#include <vector>

#include "script/worker_apartment.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/browser_window.h"
#include "tests/soak/soak.h"
#include "tests/support/async_operation.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr int kOperationsAtOnce = 50;
constexpr auto kTimeout = std::chrono::seconds(60);
constexpr ULONG kFileSize = 300'000;

enum class Expected { kSuccess, kFailure, kSilence };

// The window and the files of one round.
class Workspace {
  public:
    Workspace() {
        window_.emplace(folder_.Write(L"page.html", "<html></html>"));
        for (const wchar_t* name : {L"tree\\a", L"tree\\b", L"tree\\inner\\c", L"there\\a"})
            folder_.Write(name, std::string(kFileSize, 'x'));
        const std::string archive =
            WriteArchive({{"one", std::string(kFileSize, '1')}, {"two", std::string(9, '2'), 0}});
        folder_.Write(L"archive.zip", archive);
        std::string damaged = archive;
        damaged[damaged.find("222")] = '3';
        folder_.Write(L"damaged.zip", damaged);
    }

    void CloseWindow() { window_.reset(); }
    ComPtr<IDispatch> Plugin(const wchar_t* name) const {
        ComPtr<IDispatch> plugin;
        (*window_)->GetPlugin(name, plugin.GetAddressOf());
        return plugin;
    }
    std::wstring Path(const wchar_t* name) const { return folder_ / name; }
    std::wstring NewPath() { return folder_ / (L"new" + std::to_wstring(++created_)); }
    std::wstring NewFile() {
        return folder_.Write(L"new" + std::to_wstring(++created_), std::string(kFileSize, 'y'));
    }

  private:
    const TempFolder folder_;
    std::optional<BrowserWindow> window_;
    int created_ = 0;
};

// An operation, and how it must end.
struct Operation {
    const wchar_t* plugin;
    const wchar_t* member;
    const wchar_t* source;  // null: a new file
    Expected end;
    bool isCancelled = false;
    const wchar_t* dest = nullptr;  // null: a new path
};

constexpr wchar_t kStream[] = L"stream";  // as a destination

constexpr Operation kOperations[] = {
    {L"minizip", L"zip", L"tree", Expected::kSuccess},
    {L"minizip", L"zip", L"tree", Expected::kSuccess, false, kStream},
    {L"minizip", L"zip", L"none", Expected::kFailure},
    {L"minizip", L"zip", L"tree", Expected::kFailure, true},
    {L"minizip", L"unzip", L"archive.zip", Expected::kSuccess},
    {L"minizip", L"unzip", L"none", Expected::kFailure},
    {L"minizip", L"unzip", L"damaged.zip", Expected::kFailure},
    {L"minizip", L"unzip", L"archive.zip", Expected::kFailure, true},
    {L"file", L"copyAsync", L"tree", Expected::kSuccess},
    {L"file", L"copyAsync", L"none", Expected::kFailure},
    {L"file", L"copyAsync", L"tree", Expected::kFailure, false, L"there"},
    {L"file", L"moveAsync", nullptr, Expected::kSuccess},
    {L"file", L"enumFiles", L"tree", Expected::kSuccess},
    {L"file", L"enumFiles", L"tree", Expected::kSuccess, true},
    {L"fileIO", L"readAsync", L"tree\\a", Expected::kSuccess},
    {L"fileIO", L"readAsync", L"none", Expected::kFailure},
    {L"fileIO", L"readAsync", L"tree\\a", Expected::kSilence, true},
    {L"fileIO", L"writeAsync", L"tree\\a", Expected::kSuccess},
    {L"fileIO", L"writeAsync", L"tree\\a", Expected::kSilence, true},
    {L"http", L"downloadToFile", L"whole", Expected::kSuccess},
    {L"http", L"downloadToFile", L"part", Expected::kFailure},
    {L"http", L"downloadToFile", L"whole", Expected::kSilence, true},
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
bool EndsAsExpected(const Operation& operation, const std::string& text) {
    const bool isGood = operation.end == Expected::kSilence ? text.empty()
                        : operation.end == Expected::kFailure
                            ? text.rfind("fail: ") == 0
                            : text.rfind("success: ") == 0 && text.find("fail: ") == text.npos;
    if (!isGood) std::printf("%ls ended with \"%s\"\n", operation.member, text.c_str());
    return isGood;
}

bool RunRound(bool closesWindow) {
    Workspace workspace;
    std::vector<std::pair<const Operation&, std::unique_ptr<AsyncOperation>>> started;
    for (int i = 0; i < kOperationsAtOnce; ++i) {
        const Operation& operation = AnyOf(kOperations);
        started.emplace_back(operation, Start(operation, workspace));
    }
    if (closesWindow) workspace.CloseWindow();
    const auto isComplete = [](const auto& one) { return one.second->IsComplete(); };
    bool good = PumpUntil([&] { return std::ranges::all_of(started, isComplete); }, kTimeout);
    if (!good)
        std::printf("%d operations ended\n", static_cast<int>(std::ranges::count_if(started, isComplete)));
    for (const auto& [operation, one] : started)
        good &= EndsAsExpected(operation, one->Result().text);
    return good;
}

// Waits a moment first, because threads and windows may still be ending.
Reading Settled() {
    constexpr double kCached = 5;  // the system caches a handle now and then; an operation would leak more
    PumpUntil([] { return false; }, std::chrono::milliseconds(300));
    return {ResourceCounts::Now(), {{"handles", static_cast<double>(CountHandles()), kCached}}};
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    return tarvik::RunSoak(argc, argv, {200, 1}, [](const std::vector<int>& numbers) {
        const tarvik::WorkerApartment workers;
        tarvik::SeedRandom(numbers[1]);
        const int rounds = numbers[0];
        return tarvik::SoakLoop("rounds", tarvik::Settled).Run(rounds / 2, rounds - rounds / 2, [](int step) {
            return tarvik::RunRound(step % 2 == 1);
        });
    });
}
