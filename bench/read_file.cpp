// What it costs to read a large file with `fileIO`, into one stream and in chunks to a function, beside the
// loop that a person would write with ReadFile. Prints milliseconds.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

#include "base/owners.h"
#include "host/web_browser.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr ULONG kFileSize = 200'000'000;
constexpr DWORD kPiece = 0x10000;
constexpr int kRounds = 7;

class Reading {
  public:
    Reading() { browser_->CreateHidden(nullptr, L"about:blank"); }

    void Write() const {
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        const auto bytes = std::make_unique<char[]>(kPiece);
        std::fill_n(bytes.get(), kPiece, 'x');
        DWORD count = 0;
        for (ULONG left = kFileSize; left > 0; left -= count)
            WriteFile(file.Get(), bytes.get(), std::min<ULONG>(left, kPiece), &count, nullptr);
    }

    bool ByHand() const {
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        const auto bytes = std::make_unique<char[]>(kPiece);
        ULONG done = 0;
        DWORD count = 0;
        while (ReadFile(file.Get(), bytes.get(), kPiece, &count, nullptr) && count > 0)
            done += count;
        return done == kFileSize;
    }

    bool IntoOneStream() const {
        const auto file = Open();
        ComPtr<IDispatch> stream;
        browser_->GetPlugin(L"stream", stream.GetAddressOf());
        return CallMember(file.Get(), L"read", stream, static_cast<int>(kFileSize)).value.ulVal == kFileSize;
    }

    bool InChunks() const {
        ULONG chunks = 0;
        const auto progress = MakeCom<Recorder>([&](const Recorder::Record&) { return ++chunks, Variant(); });
        const auto success = MakeCom<Recorder>();
        OptionObject options;
        options.Set(L"len", Variant::UI4(kFileSize)).Set(L"progress", progress).Set(L"success", success);
        CallMember(Open().Get(), L"readAsync", static_cast<IDispatch*>(options));
        PumpUntil([&] { return !success->calls.empty(); }, std::chrono::minutes(1));
        return chunks == (kFileSize + kPiece - 1) / kPiece;
    }

  private:
    ComPtr<IDispatch> Open() const {
        ComPtr<IDispatch> file;
        browser_->GetPlugin(L"fileIO", file.GetAddressOf());
        CallMember(file.Get(), L"open", path_.c_str(), L"r");
        return file;
    }

    const TempFolder folder_;
    const std::wstring path_ = folder_ / L"large";
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
};

struct Way {
    const char* name;
    bool (Reading::*run)() const;
    std::array<double, kRounds> spent = {};
};

int Run() {
    const Reading reading;
    reading.Write();
    Way ways[] = {{"a loop with ReadFile", &Reading::ByHand},
                  {"read, into one stream", &Reading::IntoOneStream},
                  {"readAsync, to a native function", &Reading::InChunks}};
    for (int round = 0; round < kRounds; ++round) {
        for (Way& way : ways) {
            const auto start = std::chrono::steady_clock::now();
            if (!(reading.*way.run)()) return std::printf("%s did not read the file\n", way.name), 1;
            const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
            way.spent[round] = spent.count();
        }
    }
    std::printf("%-34s %9s %9s %7s\n", "reading 200 MB", "ms", "least", "ratio");
    for (Way& way : ways) {
        std::ranges::sort(way.spent);
        std::printf("%-34s %9.0f %9.0f %7.2f\n", way.name, way.spent[kRounds / 2], way.spent[0],
                    way.spent[kRounds / 2] / ways[0].spent[kRounds / 2]);
    }
    return 0;
}

}  // namespace
}  // namespace tarvik

int wmain() {
    OleInitialize(nullptr);
    const int result = tarvik::Run();
    OleUninitialize();
    return result;
}
