// Opens and closes browser windows with the system's own control: `soak_windows [windows]`. Fails when more
// windows, threads, handles, objects or memory are left than after the first few.

#include <windows.h>
#include <ole2.h>

#include <cstdio>
#include <string>

#include "atl/module.h"
#include "base/com_ptr.h"
#include "host/web_browser.h"
#include "tests/soak/course.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

constexpr int kWarmUp = 5;  // what the system makes once and keeps
constexpr double kMemoryRise = 1024;

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

bool Soak(int windows) {
    CMessageLoop loop;
    appModule.AddMessageLoop(&loop);
    const TempFolder folder;
    const std::wstring page = folder.Write(L"page.html", "<html></html>");
    Course course("windows", [] {
        return Reading{Holdings::Now(), {{"memory KB", PrivateMemory(), kMemoryRise}}};
    });
    const bool good = course.Run(kWarmUp, windows, [&](int) { return OpenAndClose(page); });
    appModule.RemoveMessageLoop();
    return good;
}

}  // namespace
}  // namespace tarvik

int wmain(int argc, wchar_t** argv) {
    OleInitialize(nullptr);
    const bool good = tarvik::Soak(argc > 1 ? _wtoi(argv[1]) : 100);
    OleUninitialize();
    return good ? 0 : 1;
}
