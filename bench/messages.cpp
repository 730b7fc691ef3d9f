// Measures a message of 100 bytes by `window.msg`, to a window of the same thread and of another process. For
// comparison it writes and reads the same shared block around a plain SendMessageW, to a known window and to
// one that is found by its property. The three alternate; prints microseconds per message. With an argument,
// this program is the other process.

#include <windows.h>
#include <ole2.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <limits>
#include <string>

#include "base/owners.h"
#include "base/path.h"
#include "base/text.h"
#include "host/web_browser.h"
#include "tarvik/owners.h"
#include "tarvik/properties.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kRounds = 200;
constexpr int kMessages = 50;  // in a round
constexpr double kTarget = 2.0;
constexpr UINT kPlainMessage = WM_APP;
const HANDLE plainProperty = reinterpret_cast<HANDLE>(0x10103);
const std::wstring name = L"news";
const std::wstring payload(50, L'x');

std::wstring PlainBlockName(DWORD sender, HWND target) {
    wchar_t text[64];
    swprintf(text, 64, L"Tarvik_Bench_%08X_%08X", static_cast<unsigned>(sender),
             static_cast<unsigned>(reinterpret_cast<uintptr_t>(target)));
    return text;
}

void SendPlain(HWND target) {
    const size_t size = (name.size() + payload.size() + 2) * sizeof(wchar_t);
    const std::wstring block = PlainBlockName(GetCurrentProcessId(), target);
    const UniqueHandle mapping(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                                  static_cast<DWORD>(size), block.c_str()));
    UniqueView view(MapViewOfFile(mapping.Get(), FILE_MAP_WRITE, 0, 0, size));
    auto* const text = static_cast<wchar_t*>(view.Get());
    name.copy(text, name.size());
    payload.copy(text + name.size() + 1, payload.size());
    view.Reset();
    SendMessageW(target, kPlainMessage, GetCurrentProcessId(), static_cast<LPARAM>(size));
}

void FindAndSendPlain(const std::wstring& identifier) {
    EnumWindows(
        [](HWND window, LPARAM wanted) -> BOOL {
            const auto& property = *reinterpret_cast<const std::wstring*>(wanted);
            if (GetPropW(window, property.c_str()) == plainProperty) SendPlain(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&identifier));
}

LRESULT CALLBACK PlainProcedure(HWND window, UINT message, WPARAM sender, LPARAM size) {
    if (message != kPlainMessage) return DefWindowProcW(window, message, sender, size);
    const std::wstring block = PlainBlockName(static_cast<DWORD>(sender), window);
    const UniqueHandle mapping(OpenFileMappingW(FILE_MAP_READ, FALSE, block.c_str()));
    const UniqueView view(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, size));
    const std::wstring text(static_cast<const wchar_t*>(view.Get()), size / sizeof(wchar_t));
    return text.compare(name.size() + 1, payload.size(), payload);
}

// A script function that only counts its calls.
class Counter : public Recorder {
  public:
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        ++count;
        return S_OK;
    }
    int count = 0;
};

// The two windows that receive messages.
class Receiver {
  public:
    explicit Receiver(const std::wstring& identifier) {
        WNDCLASSW description = {};
        description.lpfnWndProc = PlainProcedure;
        description.lpszClassName = L"PlainReceiver";
        RegisterClassW(&description);
        plain_.Reset(CreateWindowW(L"PlainReceiver", identifier.c_str(), 0, 0, 0, 0, 0, nullptr, nullptr,
                                   nullptr, nullptr));
        SetPropW(plain_.Get(), (L"plain" + identifier).c_str(), plainProperty);
        browser_->CreateHidden(nullptr, L"about:blank");
        PutMember(Msg().Get(), L"uniqueID", identifier.c_str());
        CallMember(Msg().Get(), L"registerMsg", name.c_str(), news_);
        CallMember(Msg().Get(), L"registerMsg", L"stop", stop_);
    }
    ~Receiver() { DestroyWindow(browser_->GetWindowHandle()); }
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;

    ComPtr<IDispatch> Msg() const {
        ComPtr<IDispatch> window;
        browser_->GetPlugin(L"window", window.GetAddressOf());
        return ObjectIn(GetMember(window.Get(), L"msg").value);
    }
    int Count() const { return news_->count; }
    bool IsStopped() const { return stop_->count > 0; }

  private:
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    const ComPtr<Counter> news_ = MakeCom<Counter>();
    const ComPtr<Counter> stop_ = MakeCom<Counter>();
    UniqueWindow plain_;
};

class Sender {
  public:
    Sender(IDispatch* msg, const std::wstring& identifier)
        : msg_(msg), identifier_(identifier), plain_(FindWindowW(L"PlainReceiver", identifier.c_str())) {
        IdOf(msg, L"sendMsg", &id_);
    }

    bool SendByMember(const std::wstring& what) {
        const Variant arguments[] = {Variant::Text(payload), Variant::Text(what), Variant::Text(identifier_)};
        VARIANT bits[] = {arguments[0], arguments[1], arguments[2]};
        DISPPARAMS parameters = {bits, nullptr, 3, 0};
        Variant found;
        msg_->Invoke(id_, IID_NULL, kScriptLocale, DISPATCH_METHOD, &parameters, &found, nullptr, nullptr);
        return found.boolVal == VARIANT_TRUE;
    }

    // Prints the shortest round of each, because other programs can only prolong a round.
    void Measure(const char* what) {
        double byHand = std::numeric_limits<double>::max(), withSearch = byHand, byMember = byHand;
        for (int round = 0; round < kRounds; ++round) {
            byHand = std::min(byHand, Time([&] { SendPlain(plain_); }));
            withSearch = std::min(withSearch, Time([&] { FindAndSendPlain(plainIdentifier_); }));
            byMember = std::min(byMember, Time([&] { SendByMember(name); }));
        }
        std::printf("%-34s %9.1f %9.1f %9.1f %7.2f  %s\n", what, byHand, withSearch, byMember,
                    byMember / byHand, byMember / byHand <= kTarget ? "met" : "MISSED");
    }

  private:
    template <class Send>
    static double Time(Send&& send) {
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kMessages; ++i)
            send();
        const std::chrono::duration<double, std::micro> spent = std::chrono::steady_clock::now() - start;
        return spent.count() / kMessages;
    }

    IDispatch* const msg_;
    const std::wstring identifier_;
    const HWND plain_;
    const std::wstring plainIdentifier_ = L"plain" + identifier_;
    DISPID id_ = DISPID_UNKNOWN;
};

UniqueHandle StartReceiver(const std::wstring& identifier) {
    std::wstring line = QuoteArgument(ExecutablePath()) + L" " + identifier;
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION information = {};
    CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                   &information);
    const UniqueHandle thread(information.hThread);
    return UniqueHandle(information.hProcess);
}

int Run() {
    const std::wstring suffix = std::to_wstring(GetCurrentProcessId());
    const Receiver own(L"own" + suffix);
    const auto msg = own.Msg();
    const UniqueHandle process = StartReceiver(L"other" + suffix);
    std::printf("%-34s %9s %9s %9s %7s  target: at most %.1f\n", "us per message of 100 bytes", "by hand",
                "searched", "by msg", "ratio", kTarget);
    Sender(msg.Get(), L"own" + suffix).Measure("a window of the same thread");
    if (own.Count() != kRounds * kMessages) return std::printf("messages were lost\n"), 1;
    const std::wstring other = L"other" + suffix;
    if (!PumpUntil([&] { return Sender(msg.Get(), other).SendByMember(name); })) return 1;
    Sender(msg.Get(), other).Measure("a window of another process");
    Sender(msg.Get(), other).SendByMember(L"stop");
    WaitForSingleObject(process.Get(), 10'000);
    return 0;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    int result = 0;
    if (argc > 1) {
        const tarvik::Receiver receiver(argv[1]);
        tarvik::PumpUntil([&] { return receiver.IsStopped(); }, std::chrono::minutes(5));
    } else {
        result = tarvik::Run();
    }
    OleUninitialize();
    return result;
}
