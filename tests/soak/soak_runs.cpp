// Asynchronous members of all plug-ins side by side, again and again: `soak_runs [rounds [seed]]`. Some
// succeed, some fail, some are cancelled, and in every second round their window goes meanwhile. Fails when a
// callback comes that should not or does not come that should, and when more of anything is left than at half
// time.

#include "tests/support/web_server.h"

#include <ole2.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <vector>

#include "host/contract/stream.h"
#include "host/web_browser.h"
#include "script/worker_apartment.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/support/leak_check.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kRuns = 50;
constexpr auto kPatience = std::chrono::seconds(60);
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
    ComPtr<IDispatch> plugin;
    const wchar_t* member;
    OptionObject options;
    End end;
    bool isCancelled = false;
};

Errand Between(Ground& ground, const wchar_t* plugin, const wchar_t* member, const wchar_t* from,
               const wchar_t* to, const wchar_t* source, End end) {
    Errand errand = {ground.Plugin(plugin), member, {}, end};
    errand.options.Set(from, ground.Path(source).c_str()).Set(to, ground.NewPath().c_str());
    return errand;
}

Errand Cancelled(Errand errand, End end) {
    errand.isCancelled = true;
    errand.end = end;
    return errand;
}

Errand Zip(Ground& ground) {
    return Between(ground, L"minizip", L"zip", L"src", L"dest", L"tree", End::kSuccess);
}
Errand ZipIntoStream(Ground& ground) {
    Errand errand = Zip(ground);
    errand.options.Set(L"dest", ground.Plugin(L"stream"));
    return errand;
}
Errand ZipNothing(Ground& ground) {
    return Between(ground, L"minizip", L"zip", L"src", L"dest", L"none", End::kFailure);
}
Errand ZipCancelled(Ground& ground) {
    return Cancelled(Zip(ground), End::kFailure);
}

Errand Unzip(Ground& ground) {
    return Between(ground, L"minizip", L"unzip", L"src", L"dest", L"archive.zip", End::kSuccess);
}
Errand UnzipNothing(Ground& ground) {
    return Between(ground, L"minizip", L"unzip", L"src", L"dest", L"none", End::kFailure);
}
Errand UnzipCancelled(Ground& ground) {
    return Cancelled(Unzip(ground), End::kFailure);
}

Errand Copy(Ground& ground) {
    return Between(ground, L"file", L"copyAsync", L"srcPath", L"destPath", L"tree", End::kSuccess);
}
Errand CopyNothing(Ground& ground) {
    return Between(ground, L"file", L"copyAsync", L"srcPath", L"destPath", L"none", End::kFailure);
}
Errand CopyOntoAnother(Ground& ground) {
    Errand errand = Copy(ground);
    errand.options.Set(L"destPath", ground.Path(L"there").c_str());
    errand.end = End::kFailure;
    return errand;
}
Errand Move(Ground& ground) {
    Errand errand = Between(ground, L"file", L"moveAsync", L"srcPath", L"destPath", L"", End::kSuccess);
    errand.options.Set(L"srcPath", ground.NewFile().c_str());
    return errand;
}

Errand Transfer(Ground& ground, const wchar_t* member, const std::wstring& path, const wchar_t* mode,
                End end) {
    Errand errand = {ground.Plugin(L"fileIO"), member, {}, end};
    CallMember(errand.plugin.Get(), L"open", path.c_str(), mode);
    errand.options.Set(L"len", Variant::UI4(kFileSize));
    return errand;
}
Errand Read(Ground& ground) {
    return Transfer(ground, L"readAsync", ground.Path(L"tree\\a"), L"r", End::kSuccess);
}
Errand ReadNothing(Ground& ground) {
    return Transfer(ground, L"readAsync", ground.Path(L"none"), L"r", End::kFailure);
}
Errand ReadCancelled(Ground& ground) {
    return Cancelled(Read(ground), End::kSilence);
}
Errand Write(Ground& ground) {
    Errand errand = Transfer(ground, L"writeAsync", ground.NewPath(), L"wn", End::kSuccess);
    const auto source = ground.Plugin(L"stream");
    CallMember(source.Get(), L"setSize", static_cast<int>(kFileSize));
    errand.options.Set(L"src", source);
    return errand;
}
Errand WriteCancelled(Ground& ground) {
    return Cancelled(Write(ground), End::kSilence);
}

Errand Enumerate(Ground& ground) {
    Errand errand = {ground.Plugin(L"file"), L"enumFiles", {}, End::kSuccess};
    errand.options.Set(L"path", ground.Path(L"tree").c_str());
    return errand;
}
Errand EnumerateCancelled(Ground& ground) {
    return Cancelled(Enumerate(ground), End::kSuccess);
}

Errand Download(Ground& ground, const wchar_t* name, End end) {
    static const WebServer server([](const WebExchange& exchange) {
        exchange.Send("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(kFileSize) + "\r\n\r\n");
        exchange.Send(std::string(exchange.Path() == "/whole" ? kFileSize : 100, 'x'));
    });
    const auto client = CallMember(ground.Plugin(L"http").Get(), L"createClient");
    Errand errand = {client.value.pdispVal, L"downloadToFile", {}, end};
    errand.options.Set(L"url", server.Url(name).c_str()).Set(L"destPath", ground.NewPath().c_str());
    return errand;
}
Errand DownloadWhole(Ground& ground) {
    return Download(ground, L"whole", End::kSuccess);
}
Errand DownloadPart(Ground& ground) {
    return Download(ground, L"part", End::kFailure);
}
Errand DownloadCancelled(Ground& ground) {
    return Cancelled(DownloadWhole(ground), End::kSilence);
}

constexpr Errand (*kErrands[])(Ground&) = {Zip,
                                           ZipIntoStream,
                                           ZipNothing,
                                           ZipCancelled,
                                           Unzip,
                                           UnzipNothing,
                                           UnzipCancelled,
                                           Copy,
                                           CopyNothing,
                                           CopyOntoAnother,
                                           Move,
                                           Read,
                                           ReadNothing,
                                           ReadCancelled,
                                           Write,
                                           WriteCancelled,
                                           Enumerate,
                                           EnumerateCancelled,
                                           DownloadWhole,
                                           DownloadPart,
                                           DownloadCancelled};

class Run {
  public:
    explicit Run(Errand errand)
        : end_(errand.end),
          member_(errand.member),
          progress_(MakeCom<Recorder>([cancel = errand.isCancelled](const Recorder::Record&) {
              return cancel ? Variant::Bool(false) : Variant();
          })) {
        errand.options.Set(L"progress", progress_).Set(L"success", success_).Set(L"fail", fail_);
        errand.options.Set(L"callback", progress_).Set(L"completed", success_);
        CallMember(errand.plugin.Get(), errand.member, static_cast<IDispatch*>(errand.options));
    }

    // Nothing refers to the functions any more.
    bool IsOver() const {
        for (Recorder* function : {progress_.Get(), success_.Get(), fail_.Get()}) {
            function->AddRef();
            if (function->Release() != 1) return false;
        }
        return true;
    }
    bool EndedAsItMust() const {
        const bool ended = success_->calls.size() == (end_ == End::kSuccess) &&
                           fail_->calls.size() == (end_ == End::kFailure);
        if (!ended)
            std::printf("%ls: %zu successes, %zu failures, wanted %d\n", member_, success_->calls.size(),
                        fail_->calls.size(), static_cast<int>(end_));
        return ended;
    }

  private:
    End end_;
    const wchar_t* member_;
    ComPtr<Recorder> progress_;
    ComPtr<Recorder> success_ = MakeCom<Recorder>();
    ComPtr<Recorder> fail_ = MakeCom<Recorder>();
};

bool RunRound(std::mt19937& random, bool closesWindow) {
    Ground ground;
    std::vector<std::unique_ptr<Run>> runs;
    for (int i = 0; i < kRuns; ++i)
        runs.push_back(std::make_unique<Run>(kErrands[random() % std::size(kErrands)](ground)));
    if (closesWindow) ground.CloseWindow();
    const auto isOver = [](const auto& run) { return run->IsOver(); };
    const bool over = PumpUntil([&] { return std::ranges::all_of(runs, isOver); }, kPatience);
    if (!over) std::printf("%d runs ended\n", static_cast<int>(std::ranges::count_if(runs, isOver)));
    bool good = over;
    for (const auto& run : runs)
        good &= run->EndedAsItMust();
    return good;
}

// Threads and windows that have been told to end need a moment.
void Settle() {
    PumpUntil([] { return false; }, std::chrono::milliseconds(300));
}

int Soak(int rounds, unsigned seed) {
    const WorkerApartment workers;
    std::mt19937 random(seed);
    constexpr long kKeptBySystem = 5;  // it keeps a handle for later now and then; a run uses more than that
    Holdings before;
    long handles = 0;
    for (int round = 1; round <= rounds; ++round) {
        if (!RunRound(random, round % 2 == 0)) return std::printf("round %d went wrong\n", round), 1;
        if (round == rounds / 2) {
            Settle();
            before = Holdings::Now();
            handles = CountHandles();
        }
        if (round % 10 == 0 || round == rounds) {
            std::printf("%d of %d rounds of %d runs\n", round, rounds, kRuns);
            std::fflush(stdout);
        }
    }
    Settle();
    const std::string grown = Holdings::Now().GrownSince(before);
    std::printf("left behind: %s; handles: %ld -> %ld\n", grown.empty() ? "nothing" : grown.c_str(), handles,
                CountHandles());
    return grown.empty() && CountHandles() <= handles + kKeptBySystem ? 0 : 1;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    const int result = tarvik::Soak(argc > 1 ? _wtoi(argv[1]) : 200, argc > 2 ? _wtoi(argv[2]) : 1);
    OleUninitialize();
    return result;
}
