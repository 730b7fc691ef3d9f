#include "tests/soak/page_soak.h"

#include <cstdio>

#include "tests/support/loaded_page.h"
#include "tests/support/screen.h"

namespace tarvik {

bool PageSoak::RunBesideAnIdlePage(const std::function<bool(const BrowserWindow& idle)>& soak) {
    const BrowserWindow idle(
        folder_.Write(L"idle.html", "<!doctype html><script>external.window.title = 'idle'</script>"));
    if (!PumpUntil([&] { return TextOf(idle.Handle()) == L"idle" && HasLoadedPage(idle.Handle()); }))
        return std::printf("the idle page is not loaded\n"), false;
    monitor_.WatchPage(control_.Engine());
    const bool good = soak(idle);
    monitor_.ForgetPage();
    return good;
}

void PageSoak::CancelDialogs(const std::function<void(HWND dialog)>& report) {
    for (const HWND dialog : TopWindows(L"#32770")) {
        if (!IsWindowVisible(dialog)) continue;
        if (report) report(dialog);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    }
}

}  // namespace tarvik
