#include "control/engine/launch.h"

#include <objbase.h>

#include "control/engine/transport.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kArguments[] = {
    L"--headless",
    // Nothing but the application's own pages: no first-run pages, no services, no traffic of the engine's
    // own.
    L"--no-first-run",
    L"--no-default-browser-check",
    L"--disable-background-networking",
    L"--disable-component-update",
    L"--disable-component-extensions-with-background-pages",
    L"--disable-default-apps",
    L"--disable-extensions",
    L"--disable-sync",
    L"--disable-quic",
    L"--disable-breakpad",
    L"--metrics-recording-only",
    L"--no-service-autorun",
    L"--password-store=basic",
    // A page that was left is gone. The browser's own lists under its address line, which nobody sees, are
    // pages with a process of 80 MB, and more for each window that there ever was.
    L"--disable-features=Translate,OptimizationHints,MediaRouter,DialMediaRouteProvider,BackForwardCache,"
    L"WebUIOmniboxPopup,WebUIOmniboxAimPopup",
    // Each window's page has a process of its own, so that one that waits or computes stops no other.
    L"--renderer-process-limit=1000",
    // Windows without focus are as alive as others, and a page that computes for long is left alone.
    L"--disable-background-timer-throttling",
    L"--disable-backgrounding-occluded-windows",
    L"--disable-renderer-backgrounding",
    L"--disable-hang-monitor",
    L"--disable-gpu",
    L"--force-color-profile=srgb",
    // The pages are the application's own files, and may use one another.
    L"--allow-file-access-from-files",
    L"--autoplay-policy=no-user-gesture-required",
};

}  // namespace

std::wstring EngineArguments() {
    std::wstring line;
    for (const wchar_t* argument : kArguments)
        line += std::wstring(L" ") + argument;
    return line;
}

std::wstring UniqueName() {
    GUID id = {};
    CoCreateGuid(&id);
    wchar_t text[40] = {};
    StringFromGUID2(id, text, 40);
    return L"tarvik-" + std::wstring(text + 1, 36);
}

bool Transport::Write(std::string_view message) {
    const std::lock_guard lock(writing_);
    if (!toEngine_) return false;
    std::string framed(message);
    framed += '\0';
    for (size_t sent = 0; sent < framed.size();) {
        DWORD written = 0;
        const auto left = static_cast<DWORD>(framed.size() - sent);
        if (!WriteFile(toEngine_.Get(), framed.data() + sent, left, &written, nullptr) || !written)
            return false;
        sent += written;
    }
    return true;
}

DWORD Transport::Read(char* buffer, DWORD size) {
    constexpr DWORD kPause = 5;
    for (;;) {
        DWORD read = 0;
        if (ReadFile(fromEngine_.Get(), buffer, size, &read, nullptr) && read > 0) {
            isStarting_ = nullptr;
            return read;
        }
        if (!isStarting_ || !isStarting_()) return 0;
        Sleep(kPause);
    }
}

void Transport::CloseWriting() {
    const std::lock_guard lock(writing_);
    toEngine_.Reset();
}

}  // namespace tarvik
