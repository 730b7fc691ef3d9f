// Drawing and input of the page control: `page_view FOLDER`, whose resource\index.html has a pad that changes
// its colour with each click. It drives the real window with real input, and so wants the desktop to itself.

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
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"
#include "control/page/register.h"
#include "host/plugin_registry/plugin_base.h"
#include "host/web_browser.h"
#include "tarvik/properties.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr SIZE kPage = {1024, 768};
constexpr POINT kPad = {100, 100};
constexpr int kClicks = 300;
constexpr Milliseconds kLost{500};

int calls = 0;
int paints = 0;
WNDPROC pageProcedure = nullptr;

// `bench`: what the page calls.
class BenchPlugin : public TablePlugin<BenchPlugin> {
  public:
    static constexpr char kClassName[] = "BenchPlugin";
    static std::span<const Member<BenchPlugin>> Members();
    void Clicked() { ++calls; }
    void Nothing() {}
};

constexpr Member<BenchPlugin> kMembers[] = {
    Method<&BenchPlugin::Clicked>(-10000, L"clicked"),
    Method<&BenchPlugin::Nothing>(-9999, L"nothing"),
};

[[maybe_unused]] const bool registered = RegisterBuiltIn<BenchPlugin>(L"bench", TVK::kRetainedPlugin);

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    paints += message == WM_PAINT;
    return CallWindowProcW(pageProcedure, window, message, wParam, lParam);
}

// Looks at the condition every few milliseconds; without one it only wakes for messages.
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

    // Each click goes there first: the pointer belongs to the whole desktop.
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
    // When no more come.
    int CountAtRest() const {
        for (int last = -1, count = Count();; count = Count()) {
            if (std::exchange(last, count) == count) return count;
            PumpFor(kLost);
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

// Clicks as fast as the screen follows.
void MeasureClicks(const ViewedPage& page, const char* name) {
    std::vector<double> times;
    const int before = page.Count();
    for (int i = 0; i < kClicks; ++i) {
        const COLORREF colour = page.PadColour();
        const auto start = Clock::now();
        page.Click();
        if (PumpFor(kLost, [&] { return page.PadColour() != colour; }))
            times.push_back(Milliseconds(Clock::now() - start).count());
    }
    PrintTimes(name, times);
    std::printf("%-52s %8d of %d\n", "  reached the page", page.CountAtRest() - before, kClicks);
}

// More than one click at a time: the page is at work on one when the next comes.
void CountFlurries(const ViewedPage& page) {
    const int before = page.Count();
    for (int i = 0; i < kClicks; i += 3) {
        for (int click = 0; click < 3; ++click) {
            page.Click();
            PumpFor(Milliseconds(3));
        }
        PumpFor(Milliseconds(60));
    }
    std::printf("%-52s %8d of %d\n", "clicks in threes, 3 ms apart, that reached the page",
                page.CountAtRest() - before, kClicks);
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

// What any window costs here: the measure for a page at which nothing happens.
void MeasurePlainWindow() {
    const HWND window = CreateWindowExW(0, L"STATIC", L"A text", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                        kPage.cx, kPage.cy, nullptr, nullptr, nullptr, nullptr);
    PumpFor(Milliseconds(1500));
    MeasurePaints("a window with a text, for comparison");
    DestroyWindow(window);
}

void Measure(const ViewedPage& page) {
    page.Show();
    // On a new desktop the pointer of the system underneath is somewhere else, and for a moment the first
    // move is taken back. A click that comes then goes there.
    page.PointAtPad();
    PumpFor(Milliseconds(1500));
    MeasurePaints("a page that stands still");
    page.Call(L"move", Variant::Bool(true));
    PumpFor(Milliseconds(500));
    MeasurePaints("a page with two moving boxes");
    page.Call(L"move", Variant::Bool(false));
    std::printf("\n%-52s %8s %8s %8s  (ms)\n", "", "median", "95 %", "most");
    MeasureClicks(page, "click to changed pixel");
    page.Call(L"talk", Variant::I4(10));
    MeasureClicks(page, "the same, the page calling native objects");
    CountFlurries(page);
    std::printf("%-52s %8d\n", "calls that the page made for its clicks", calls);
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
