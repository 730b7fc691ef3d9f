// page_frames PAGE SECONDS [minimised|hidden]: shows a page in the page control, for tools/bench to count
// what its frames cost. Prints a line when the measurement starts, and the paints per second at its end.

#include <windows.h>

#include <chrono>
#include <cstdio>
#include <string_view>

#include "atl/ax_window.h"
#include "atl/module.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "tarvik/com_ptr.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

constexpr SIZE kPage = {1024, 720};
constexpr Seconds kStart{2};

int paints = 0;
WNDPROC pageProcedure = nullptr;

LRESULT CALLBACK CountPaints(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    paints += message == WM_PAINT;
    return CallWindowProcW(pageProcedure, window, message, wParam, lParam);
}

void PumpFor(Seconds time) {
    const auto end = Clock::now() + time;
    for (;;) {
        const double left = Seconds(end - Clock::now()).count();
        if (left <= 0) return;
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(left * 1000) + 1, QS_ALLINPUT,
                                    MWMO_INPUTAVAILABLE);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
            if (Clock::now() >= end) return;
        }
    }
}

void Show(HWND window, HWND page) {
    RECT frame = {0, 0, kPage.cx, kPage.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE)), FALSE, 0);
    SetWindowPos(window, HWND_TOP, 0, 0, frame.right - frame.left, frame.bottom - frame.top, SWP_SHOWWINDOW);
    SetForegroundWindow(window);
    SetFocus(page);
}

void Measure(HWND window, Seconds time, std::wstring_view state) {
    const HWND page = InnermostWindow(window);
    pageProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountPaints)));
    Show(window, page);
    PumpFor(kStart);
    if (!state.empty()) {
        ShowWindow(window, state == L"hidden" ? SW_HIDE : SW_MINIMIZE);
        PumpFor(kStart);
    }
    std::puts("measuring");
    std::fflush(stdout);
    paints = 0;
    PumpFor(time);
    std::printf("%.0f\n", paints / time.count());
    std::fflush(stdout);
    PumpFor(Seconds(1));  // the caller reads the clocks before anything ends
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    if (argc < 3) return std::printf("usage: page_frames PAGE SECONDS [minimised|hidden]\n"), 2;
    SetEnvironmentVariableW(L"TARVIK_ENGINE", L"chromium");
    const tarvik::PageControlClass control;
    tarvik::CMessageLoop loop;
    tarvik::appModule.AddMessageLoop(&loop);
    const auto browser = tarvik::MakeCom<tarvik::CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, argv[1]);
    if (!window) return std::printf("no page\n"), 1;
    tarvik::Measure(window, tarvik::Seconds(_wtof(argv[2])), argc > 3 ? argv[3] : L"");
    DestroyWindow(window);
    tarvik::appModule.RemoveMessageLoop();
    return 0;
}
