// Opens and closes browser windows with the system's own control: `soak_windows [windows]`. Fails when more
// windows, threads, handles or objects are left than after the first few.

#include <windows.h>
#include <ole2.h>

#include <cstdio>
#include <string>

#include "atl/module.h"
#include "base/com_ptr.h"
#include "host/web_browser.h"
#include "tests/support/leak_check.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kWarmUp = 5;  // what the system makes once and keeps

int CountWindows() {
    int count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND, LPARAM counter) -> BOOL {
            ++*reinterpret_cast<int*>(counter);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

bool OpenAndClose(const std::wstring& page) {
    const auto browser = MakeCom<CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, page.c_str());
    if (!window) return false;
    {
        // A plug-in that holds on to its window must not outlive it.
        ComPtr<IDispatch> plugin;
        if (FAILED(browser->GetPlugin(L"window", plugin.GetAddressOf()))) return false;
    }
    PumpOnce();
    DestroyWindow(window);
    PumpOnce();
    return true;
}

int Soak(int windows) {
    CMessageLoop loop;
    appModule.AddMessageLoop(&loop);
    const TempFolder folder;
    const std::wstring page = folder.Write(L"page.html", "<html></html>");
    Holdings before;
    int windowsBefore = 0;
    for (int i = 0; i < kWarmUp + windows; ++i) {
        if (i == kWarmUp) {
            before = Holdings::Now();
            windowsBefore = CountWindows();
        }
        if (!OpenAndClose(page)) return std::printf("window %d could not be made\n", i), 1;
    }
    appModule.RemoveMessageLoop();
    const std::string grown = Holdings::Now().GrownSince(before);
    const int left = CountWindows() - windowsBefore;
    std::printf("%d windows: %d left, %s\n", windows, left, grown.empty() ? "nothing grew" : grown.c_str());
    return grown.empty() && left <= 0 ? 0 : 1;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    const int result = tarvik::Soak(argc > 1 ? _wtoi(argv[1]) : 100);
    OleUninitialize();
    return result;
}
