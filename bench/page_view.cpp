// page_view FOLDER: measures drawing and input of the page control. The page FOLDER\resource\index.html has a
// pad that changes its colour at each click. This sends real input to a real window, so nothing else may use
// the desktop.

#include <windows.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "atl/ax_window.h"
#include "atl/module.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/variant.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr SIZE kPage = {1024, 768};
constexpr POINT kPad = {100, 100};
constexpr int kClicks = 300;
constexpr Milliseconds kTimeout{500};  // a click without effect for so long is lost

int calls = 0;
int paints = 0;
WNDPROC pageProcedure = nullptr;

// The plug-in `bench`, which the page calls.
class BenchPlugin : public TablePlugin<BenchPlugin> {
  public:
    static constexpr char kClassName[] = "BenchPlugin";
    static std::span<const Member<BenchPlugin>> Members();
    void Clicked() { ++calls; }
    void Nothing() {}
};

constexpr Member<BenchPlugin> kMembers[] = {
    Method<&BenchPlugin::Clicked>(L"clicked", -10000),
    Method<&BenchPlugin::Nothing>(L"nothing", -9999),
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<BenchPlugin>(L"bench", TVK::kRetainedPlugin);

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    paints += message == WM_PAINT;
    return CallWindowProcW(pageProcedure, window, message, wParam, lParam);
}

// Pumps messages until the condition is true or the time is over. Polls a condition every 5 ms.
bool PumpFor(Milliseconds limit, const std::function<bool()>& condition = nullptr) {
    const auto end = Clock::now() + limit;
    while (!condition || !condition()) {
        const double left = Milliseconds(end - Clock::now()).count();
        if (left < 0) return false;
        MsgWaitForMultipleObjectsEx(0, nullptr, condition ? 5 : static_cast<DWORD>(left) + 1, QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
        MSG message;
        if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

double ProcessorSeconds() {
    FILETIME created, exited, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &exited, &kernel, &user);
    const auto seconds = [](FILETIME time) {
        return static_cast<double>((ULONGLONG{time.dwHighDateTime} << 32) | time.dwLowDateTime) / 1e7;
    };
    return seconds(kernel) + seconds(user);
}

// The page of one browser window.
class ViewedPage {
  public:
    explicit ViewedPage(HWND window) : window_(window) {
        page_ = InnermostWindow(window);
        pageProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(page_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountPaints)));
    }

    void Show() const {
        RECT frame = {0, 0, kPage.cx, kPage.cy};
        AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE, 0);
        SetWindowPos(window_, HWND_TOP, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                     SWP_SHOWWINDOW);
        SetForegroundWindow(window_);
    }

    COLORREF PadColour() const { return PixelOf(page_, kPad); }

    void PointAtPad() const { Send({MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE}); }

    // Each click moves the pointer first, because others may have moved it.
    void Click() const {
        Send({MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP});
    }

    Variant Call(const wchar_t* function, const Variant& argument) const {
        const auto script = ScriptOf(AtlAxGetControl(window_).Get());
        const Variant callee = ReadScriptProperty(script.Get(), function);
        Variant result;
        if (callee.Is(VT_DISPATCH)) CallScriptFunction(callee.pdispVal, {&argument}, &result);
        return result;
    }
    int Count() const { return Call(L"clickCount", Variant()).lVal; }
    // The count once it no longer grows.
    int FinalCount() const {
        for (int last = -1, count = Count();; count = Count()) {
            if (std::exchange(last, count) == count) return count;
            PumpFor(kTimeout);
        }
    }

  private:
    void Send(std::initializer_list<DWORD> actions) const {
        POINT point = kPad;
        ClientToScreen(page_, &point);
        std::vector<INPUT> inputs;
        for (const DWORD action : actions)
            inputs.push_back(action & MOUSEEVENTF_MOVE ? MoveOf(point) : MouseInputOf(action));
        SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    }

    HWND window_;
    HWND page_;
};

void PrintTimes(const char* name, std::vector<double> times) {
    if (times.empty()) return (void)std::printf("%-52s none\n", name);
    std::sort(times.begin(), times.end());
    std::printf("%-52s %8.1f %8.1f %8.1f\n", name, times[times.size() / 2], times[times.size() * 95 / 100],
                times.back());
}

// Sends each click when the previous one has changed the screen.
void MeasureClicks(const ViewedPage& page, const char* name) {
    std::vector<double> times;
    const int before = page.Count();
    for (int i = 0; i < kClicks; ++i) {
        const COLORREF colour = page.PadColour();
        const auto start = Clock::now();
        page.Click();
        if (PumpFor(kTimeout, [&] { return page.PadColour() != colour; }))
            times.push_back(Milliseconds(Clock::now() - start).count());
    }
    PrintTimes(name, times);
    std::printf("%-52s %8d of %d\n", "  reached the page", page.FinalCount() - before, kClicks);
}

// Sends clicks while the page is still handling the one before.
void CountBursts(const ViewedPage& page) {
    const int before = page.Count();
    for (int i = 0; i < kClicks; i += 3) {
        for (int click = 0; click < 3; ++click) {
            page.Click();
            PumpFor(Milliseconds(3));
        }
        PumpFor(Milliseconds(60));
    }
    std::printf("%-52s %8d of %d\n", "clicks in threes, 3 ms apart, that reached the page",
                page.FinalCount() - before, kClicks);
}

void MeasurePaints(const char* name) {
    const double processor = ProcessorSeconds();
    const int before = paints;
    const auto start = Clock::now();
    PumpFor(Milliseconds(5000));
    const double seconds = Milliseconds(Clock::now() - start).count() / 1000;
    std::printf("%-52s %8.1f paints/s, %5.1f %% of a processor in this process\n", name,
                (paints - before) / seconds, (ProcessorSeconds() - processor) / seconds * 100);
}

// The paints of an ordinary window, to compare an idle page with.
void MeasurePlainWindow() {
    const HWND window = CreateWindowExW(0, L"STATIC", L"A text", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                        kPage.cx, kPage.cy, nullptr, nullptr, nullptr, nullptr);
    PumpFor(Milliseconds(1500));
    MeasurePaints("a window with a text, for comparison");
    DestroyWindow(window);
}

void Measure(const ViewedPage& page) {
    page.Show();
    // On a new desktop, the Unix host's pointer is elsewhere and undoes the first move for a moment. A click
    // at that moment would miss.
    page.PointAtPad();
    PumpFor(Milliseconds(1500));
    MeasurePaints("an idle page");
    page.Call(L"move", Variant::Bool(true));
    PumpFor(Milliseconds(500));
    MeasurePaints("a page with two moving boxes");
    page.Call(L"move", Variant::Bool(false));
    std::printf("\n%-52s %8s %8s %8s  (ms)\n", "", "median", "95 %", "max");
    MeasureClicks(page, "click to changed pixel");
    page.Call(L"callNative", Variant::I4(10));
    MeasureClicks(page, "the same, while the page calls native objects");
    CountBursts(page);
    std::printf("%-52s %8d\n", "calls of the page for these clicks", calls);
}

}  // namespace

std::span<const Member<BenchPlugin>> BenchPlugin::Members() {
    return kMembers;
}

}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (argc < 2 || !SetCurrentDirectoryW(argv[1])) return std::printf("usage: page_view FOLDER\n"), 2;
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    tarvik::MeasurePlainWindow();
    const tarvik::PageControlClass control;
    tarvik::CMessageLoop loop;
    tarvik::appModule.AddMessageLoop(&loop);
    const auto browser = tarvik::MakeCom<tarvik::CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, nullptr);
    if (!window) return std::printf("no page\n"), 1;
    tarvik::Measure(tarvik::ViewedPage(window));
    DestroyWindow(window);
    tarvik::appModule.RemoveMessageLoop();
    return 0;
}
