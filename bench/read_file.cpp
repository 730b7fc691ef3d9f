// What it costs to read a large file with `fileIO`, into one stream and in chunks to a function, beside the
// loop that a person would write with ReadFile. Prints milliseconds.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <memory>

#include "tarvik/owners.h"
#include "host/web_browser.h"
#include "script/dispatch.h"
#include "tests/support/members.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr ULONG kFileSize = 200'000'000;
constexpr DWORD kPiece = 0x10000;
constexpr int kRounds = 7;

// A script function that counts its calls and lets go of what it is given.
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
        const auto bytes = std::make_unique<char[]>(kPiece);
        return ReadAll([&](ULONG) { return bytes.get(); });
    }
    bool ByHandToMemory() const {
        const UniquePages bytes(VirtualAlloc(nullptr, kFileSize + kPiece, MEM_COMMIT, PAGE_READWRITE));
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
        return ReadAsync(options) && chunks == (kFileSize + kPiece - 1) / kPiece;
    }

  private:
    template <class Place>
    bool ReadAll(Place place) const {
        const UniqueHandle file(
            CreateFileW(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ULONG done = 0;
        DWORD count = 0;
        while (ReadFile(file.Get(), place(done), kPiece, &count, nullptr) && count > 0)
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

struct Way {
    const char* name;
    bool (Reading::*run)() const;
    std::array<double, kRounds> spent = {};
};

int Run() {
    const Reading reading;
    reading.Write();
    Way ways[] = {{"ReadFile, to one buffer", &Reading::ByHand},
                  {"readAsync, dropped", &Reading::AndDrop},
                  {"ReadFile, to memory", &Reading::ByHandToMemory},
                  {"read, to one stream", &Reading::IntoOneStream},
                  {"readAsync, to a function", &Reading::InChunks}};
    for (int round = 0; round < kRounds; ++round) {
        for (Way& way : ways) {
            const auto start = std::chrono::steady_clock::now();
            if (!(reading.*way.run)()) return std::printf("%s did not read the file\n", way.name), 1;
            const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - start;
            way.spent[round] = spent.count();
        }
    }
    for (Way& way : ways)
        std::ranges::sort(way.spent);
    const auto ratio = [&](int way, int peer) {
        return ways[way].spent[kRounds / 2] / ways[peer].spent[kRounds / 2];
    };
    std::printf("%-34s %9s %9s\n", "reading 200 MB", "ms", "least");
    for (const Way& way : ways)
        std::printf("%-34s %9.0f %9.0f\n", way.name, way.spent[kRounds / 2], way.spent[0]);
    std::printf("%-34s %9.2f\n%-34s %9.2f\n%-34s %9.0f\n", "readAsync to ReadFile", ratio(1, 0),
                "one stream to ReadFile to memory", ratio(3, 2), "us a call of progress",
                (ways[4].spent[kRounds / 2] - ways[1].spent[kRounds / 2]) * 1000 / (kFileSize / kPiece));
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
