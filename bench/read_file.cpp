// Reads a large file with `fileIO`, into one stream and in chunks to a function, and with a hand-written loop
// of ReadFile. Prints milliseconds.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

#include "base/owners.h"
#include "host/web_browser.h"
#include "script/dispatch.h"
#include "tarvik/owners.h"
#include "tests/support/members.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr ULONG kFileSize = 200'000'000;
constexpr DWORD kChunkSize = 0x10000;
constexpr int kRounds = 7;

// A script function that only counts its calls.
class Counter : public CDispatchBase {
  public:
    explicit Counter(ULONG& count) : count_(count) {}

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        ++count_;
        return S_OK;
    }

  private:
    ULONG& count_;
};

class Reader {
  public:
    Reader() { browser_->CreateHidden(nullptr, L"about:blank"); }

    void Write() const {
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
        const auto bytes = std::make_unique<char[]>(kChunkSize);
        std::fill_n(bytes.get(), kChunkSize, 'x');
        DWORD count = 0;
        for (ULONG left = kFileSize; left > 0; left -= count)
            WriteFile(file.Get(), bytes.get(), std::min<ULONG>(left, kChunkSize), &count, nullptr);
    }

    bool ByHand() const {
        const auto bytes = std::make_unique<char[]>(kChunkSize);
        return ReadAll([&](ULONG) { return bytes.get(); });
    }
    bool ByHandToMemory() const {
        const UniquePages bytes(VirtualAlloc(nullptr, kFileSize + kChunkSize, MEM_COMMIT, PAGE_READWRITE));
        return ReadAll([&](ULONG done) { return static_cast<char*>(bytes.Get()) + done; });
    }

    bool IntoOneStream() const {
        const auto file = Open();
        ComPtr<IDispatch> stream;
        browser_->GetPlugin(L"stream", stream.GetAddressOf());
        return CallMember(file.Get(), L"read", stream, static_cast<int>(kFileSize)).value.ulVal == kFileSize;
    }

    bool AndDrop() const { return ReadAsync({}); }
    bool InChunks() const {
        ULONG chunks = 0;
        OptionObject options;
        options.Set(L"progress", MakeCom<Counter>(chunks));
        return ReadAsync(options) && chunks == (kFileSize + kChunkSize - 1) / kChunkSize;
    }

  private:
    template <class Place>
    bool ReadAll(Place place) const {
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ULONG done = 0;
        DWORD count = 0;
        while (ReadFile(file.Get(), place(done), kChunkSize, &count, nullptr) && count > 0)
            done += count;
        return done == kFileSize;
    }

    bool ReadAsync(const OptionObject& options) const {
        ULONG ends = 0;
        options.Set(L"len", Variant::UI4(kFileSize)).Set(L"success", MakeCom<Counter>(ends));
        CallMember(Open().Get(), L"readAsync", static_cast<IDispatch*>(options));
        return PumpUntil([&] { return ends == 1; }, std::chrono::minutes(1));
    }

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

struct Candidate {
    const char* name;
    bool (Reader::*run)() const;
    std::array<double, kRounds> milliseconds = {};
};

int Run() {
    const Reader reader;
    reader.Write();
    Candidate candidates[] = {{"ReadFile, to one buffer", &Reader::ByHand},
                              {"readAsync, dropped", &Reader::AndDrop},
                              {"ReadFile, to memory", &Reader::ByHandToMemory},
                              {"read, to one stream", &Reader::IntoOneStream},
                              {"readAsync, to a function", &Reader::InChunks}};
    for (int round = 0; round < kRounds; ++round) {
        for (Candidate& candidate : candidates) {
            const auto start = std::chrono::steady_clock::now();
            if (!(reader.*candidate.run)())
                return std::printf("%s did not read the file\n", candidate.name), 1;
            const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
            candidate.milliseconds[round] = spent.count();
        }
    }
    for (Candidate& candidate : candidates)
        std::ranges::sort(candidate.milliseconds);
    const auto ratio = [&](int candidate, int peer) {
        return candidates[candidate].milliseconds[kRounds / 2] / candidates[peer].milliseconds[kRounds / 2];
    };
    std::printf("%-34s %9s %9s\n", "reading 200 MB", "ms", "min");
    for (const Candidate& candidate : candidates)
        std::printf("%-34s %9.0f %9.0f\n", candidate.name, candidate.milliseconds[kRounds / 2],
                    candidate.milliseconds[0]);
    std::printf("%-34s %9.2f\n%-34s %9.2f\n%-34s %9.0f\n", "readAsync to ReadFile", ratio(1, 0),
                "one stream to ReadFile to memory", ratio(3, 2), "us per call of progress",
                (candidates[4].milliseconds[kRounds / 2] - candidates[1].milliseconds[kRounds / 2]) * 1000 /
                    (kFileSize / kChunkSize));
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
