#include <windows.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <set>
#include <thread>

#include "plugins/zip/zip_plugin.h"
#include "tests/plugins/zip/archive_writer.h"
#include "tests/soak/archive_mutator.h"
#include "tests/soak/guarded_bytes.h"
#include "tests/support/leak_check.h"

// soak_zip [RUNS [SEED]]: damaged archives, one after the other. A fault, a run that does not end, a file
// outside the destination and a handle that is not given back end the soak with a status of their own.
namespace tarvik {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

enum Status : int { kGood = 0, kWrittenOutside = 2, kHandlesGrew = 3, kFault = 5, kHung = 77 };

std::atomic<int> currentRun{0};

LONG CALLBACK ReportFault(EXCEPTION_POINTERS* fault) {
    if (fault->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    std::printf("run %d: access violation\n", currentRun.load());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kFault);
    return EXCEPTION_CONTINUE_SEARCH;
}

void WatchForHangs() {
    std::thread([] {
        for (int seen = -1;; std::this_thread::sleep_for(std::chrono::seconds(60))) {
            const int now = currentRun;
            if (now == seen) {
                std::printf("run %d does not end\n", now);
                std::fflush(stdout);
                TerminateProcess(GetCurrentProcess(), kHung);
            }
            seen = now;
        }
    }).detach();
}

std::vector<std::string> GoodArchives() {
    std::string noise;
    std::mt19937 random(1);
    for (int i = 0; i < 5000; ++i)
        noise += static_cast<char>(random() % 64 + ' ');
    const std::string text(9000, 't');
    ArchiveLayout commented;
    commented.comment = "a comment";
    return {
        WriteArchive({{"folder/name/", ""}, {"folder/name/text.txt", text}, {"folder/empty.txt", ""}}),
        WriteArchive({{"stored-file.bin", noise, 0}, {"packed-file.bin", noise}}, commented),
        WriteArchive({{.name = "wide-stored.bin", .content = noise, .method = 0, .wide = true},
                      {.name = "wide-packed.bin", .content = noise, .wide = true}}),
        std::string(3000, 'M') + WriteArchive({{"first-archive.txt", "1"}}) +
            WriteArchive({{.name = "\xC3\xA9t\xC3\xA9/second.txt", .content = text, .flags = kUtf8Name}}),
        WriteArchive({}),
    };
}

// root\guard\deep\out: climbing names end up in one of the folders above `out`, which hold nothing else.
class Ground {
  public:
    Ground() : root_(fs::temp_directory_path() / ("tarvik-soak-" + std::to_string(GetCurrentProcessId()))) {
        fs::create_directories(root_ / "guard" / "deep");
        elsewhere_ = Elsewhere();
    }
    ~Ground() {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
    }

    std::wstring Dest() const { return (root_ / "guard" / "deep" / "out").wstring(); }
    void Clear() const { fs::remove_all(Dest()); }
    bool IsUntouched() const {
        return Names(root_) == std::set<std::wstring>{L"guard"} &&
               Names(root_ / "guard") == std::set<std::wstring>{L"deep"} &&
               HoldsAtMost(root_ / "guard" / "deep", L"out");
    }
    bool IsUntouchedElsewhere() const { return Elsewhere() == elsewhere_; }

  private:
    static std::set<std::wstring> Names(const fs::path& folder) {
        std::set<std::wstring> names;
        for (const auto& entry : fs::directory_iterator(folder))
            names.insert(entry.path().filename().wstring());
        return names;
    }
    static bool HoldsAtMost(const fs::path& folder, const std::wstring& name) {
        const auto names = Names(folder);
        return names.empty() || names == std::set<std::wstring>{name};
    }
    std::set<std::wstring> Elsewhere() const {
        auto names = Names(fs::current_path());
        names.merge(Names(L"C:\\"));
        return names;
    }

    fs::path root_;
    std::set<std::wstring> elsewhere_;
};

// The road of both sources, on bytes that lie tight between guards.
bool Unpack(Bytes file, GuardedBytes::Tight tight, ULONG index, const std::wstring& dest) {
    const auto plugin = MakeCom<CZipPlugin>();
    const Variant noContext;
    const ExtractOptions options{dest, false, nullptr, &noContext};
    const HRESULT status = Guard([&] {
        const auto found = FindArchive(file, index);
        const GuardedBytes archive(found.value_or(file), tight);
        plugin->ExtractMemory(archive.Content(), options);
    });
    return SUCCEEDED(status);
}

class Soak {
  public:
    Soak(int runs, std::uint64_t seed) : runs_(runs), mutator_(seed) {}

    Status Run() {
        for (int run = 1; run <= runs_; ++run) {
            currentRun = run;
            RunOnce();
            if (!ground_.IsUntouched()) return Fail(kWrittenOutside, "something was written outside");
            if (run == kWarmUp) handles_ = CountHandles();
            if (run % 1000 != 0 && run != runs_) continue;
            Report(run);
            if (!ground_.IsUntouchedElsewhere())
                return Fail(kWrittenOutside, "something was written elsewhere");
            if (run > kWarmUp && CountHandles() > handles_) return Fail(kHandlesGrew, "handles were lost");
        }
        return kGood;
    }

  private:
    static constexpr int kWarmUp = 100;

    void RunOnce() {
        const std::string archive = mutator_.Mutate(good_[mutator_.Below(good_.size())]);
        const auto tight =
            mutator_.Below(2) == 0 ? GuardedBytes::Tight::kAtEnd : GuardedBytes::Tight::kAtStart;
        const GuardedBytes file(BytesOf(archive), tight);
        if (Unpack(file.Content(), tight, static_cast<ULONG>(mutator_.Below(3)), ground_.Dest())) {
            ++unpacked_;
            ground_.Clear();
        }
    }
    void Report(int run) const {
        const double seconds = std::chrono::duration<double>(Clock::now() - start_).count();
        std::printf("%d of %d: %d unpacked, %d refused, %ld handles, %.1f s\n", run, runs_, unpacked_,
                    run - unpacked_, CountHandles(), seconds);
        std::fflush(stdout);
    }
    static Status Fail(Status status, const char* why) {
        std::printf("run %d: %s\n", currentRun.load(), why);
        return status;
    }

    int runs_;
    ArchiveMutator mutator_;
    const std::vector<std::string> good_ = GoodArchives();
    const Ground ground_;
    const Clock::time_point start_ = Clock::now();
    long handles_ = 0;
    int unpacked_ = 0;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    const int runs = argc > 1 ? _wtoi(argv[1]) : 100'000;
    const std::uint64_t seed = argc > 2 ? _wcstoui64(argv[2], nullptr, 10) : 1;
    AddVectoredExceptionHandler(1, tarvik::ReportFault);
    tarvik::WatchForHangs();
    return tarvik::Soak(runs, seed).Run();
}
