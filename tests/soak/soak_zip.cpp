// Damaged archives, one after the other: `soak_zip [runs [seed]]`. Fails for a fault, for a run that does not
// end, for a file outside the destination, and for handles that are not given back.

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
#include "tests/soak/course.h"
#include "tests/soak/guarded_bytes.h"
#include "tests/support/temp_folder.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

std::atomic<int> currentRun{0};

void End(const char* why) {
    std::printf("run %d: %s\n", currentRun.load(), why);
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), 2);
}

LONG CALLBACK ReportFault(EXCEPTION_POINTERS* fault) {
    if (fault->ExceptionRecord->ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
    End("access violation");
    return EXCEPTION_CONTINUE_SEARCH;
}

void WatchForHangs() {
    std::thread([] {
        for (int seen = -1; seen != currentRun; std::this_thread::sleep_for(std::chrono::seconds(60)))
            seen = currentRun;
        End("does not end");
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

// guard\deep\out: climbing names end up in one of the folders above `out`, which hold nothing else.
class Ground {
  public:
    std::wstring Dest() const { return folder_ / L"guard\\deep\\out"; }
    void Clear() const {
        fs::remove_all(Dest());
        fs::create_directories(fs::path(Dest()).parent_path());
    }
    bool IsUntouched() const {
        return std::distance(fs::recursive_directory_iterator(folder_.Path()), {}) == 2;
    }
    bool IsUntouchedElsewhere() const { return Elsewhere() == elsewhere_; }

  private:
    static std::set<fs::path> Elsewhere() {
        std::set<fs::path> files;
        for (const fs::path& folder : {fs::current_path(), fs::path(L"C:\\")})
            files.insert(fs::directory_iterator(folder), {});
        return files;
    }

    const TempFolder folder_;
    const std::set<fs::path> elsewhere_ = Elsewhere();
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
    explicit Soak(std::uint64_t seed) : mutator_(seed) {}

    bool Run(int runs) {
        Course course("runs", [this] {
            if (!ground_.IsUntouchedElsewhere()) End("something was written elsewhere");
            return Reading{Holdings::Now(),
                           {{"handles", static_cast<double>(CountHandles()), 0},
                            {"unpacked", static_cast<double>(unpacked_), kAny}}};
        });
        constexpr int kWarmUp = 100;
        return course.Run(kWarmUp, runs, [this](int run) {
            currentRun = run;
            RunOnce();
            if (!ground_.IsUntouched()) End("something was written outside");
            return true;
        });
    }

  private:
    static constexpr double kAny = 1e9;

    void RunOnce() {
        ground_.Clear();
        const std::string archive = mutator_.Mutate(good_[mutator_.Below(good_.size())]);
        const auto tight =
            mutator_.Below(2) == 0 ? GuardedBytes::Tight::kAtEnd : GuardedBytes::Tight::kAtStart;
        const GuardedBytes file(BytesOf(archive), tight);
        unpacked_ += Unpack(file.Content(), tight, static_cast<ULONG>(mutator_.Below(3)), ground_.Dest());
        fs::remove_all(ground_.Dest());
    }

    ArchiveMutator mutator_;
    const std::vector<std::string> good_ = GoodArchives();
    const Ground ground_;
    int unpacked_ = 0;
};

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    const int runs = argc > 1 ? _wtoi(argv[1]) : 100'000;
    const std::uint64_t seed = argc > 2 ? _wcstoui64(argv[2], nullptr, 10) : 1;
    AddVectoredExceptionHandler(1, tarvik::ReportFault);
    tarvik::WatchForHangs();
    return tarvik::Soak(seed).Run(runs) ? 0 : 1;
}
