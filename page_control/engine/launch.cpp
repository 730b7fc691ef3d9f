#include "page_control/engine/launch.h"

#include <objbase.h>

#include "base/dpi.h"
#include "base/wine.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kArguments[] = {
    L"--headless",
    // Only the application's pages: no first-run pages, no services, no background traffic.
    L"--no-first-run",
    L"--hide-crash-restore-bubble",
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
    // No back/forward cache: the script contexts of its pages would survive. The drop-down lists of the
    // invisible address bar would be pages with a process of 80 MB, and more for each window ever opened.
    (L"--disable-features=Translate,OptimizationHints,MediaRouter,DialMediaRouteProvider,BackForwardCache,"
     L"WebUIOmniboxPopup,WebUIOmniboxAimPopup"),
    // A process for each window's page, so that one that waits or computes stops no other.
    L"--renderer-process-limit=1000",
    // No throttling of windows in the background, no warning about a page that computes for long.
    L"--disable-background-timer-throttling",
    L"--disable-backgrounding-occluded-windows",
    L"--disable-renderer-backgrounding",
    L"--disable-hang-monitor",
    L"--force-color-profile=srgb",
    // The pages are the application's own files and may access each other.
    L"--allow-file-access-from-files",
    L"--autoplay-policy=no-user-gesture-required",
};

// Whether the engine may find a graphics processor. Under Wine the Unix host may have none.
bool HasGpu() {
    const auto exists = [](const wchar_t* path) {
        return GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES;
    };
    return !IsWine() || exists(L"Z:\\dev\\dri\\renderD128") || exists(L"Z:\\dev\\nvidiactl");
}

}  // namespace

double EngineScale() {
    static const double scale = static_cast<double>(HighestDpi()) / USER_DEFAULT_SCREEN_DPI;
    return scale;
}

std::wstring EngineArguments() {
    std::wstring line;
    for (const wchar_t* argument : kArguments)
        line += std::wstring(L" ") + argument;
    line += L" --force-device-scale-factor=" + Widen(std::to_string(EngineScale()));
    // Without a window of its own, the engine uses the processor only on request, and then has no replacement
    // for it unless that is requested, too.
    return line + (HasGpu() ? L" --enable-gpu --enable-unsafe-swiftshader" : L" --disable-gpu");
}

std::wstring UniqueName() {
    GUID id = {};
    CoCreateGuid(&id);
    wchar_t text[40] = {};
    StringFromGUID2(id, text, 40);
    return L"tarvik-" + std::wstring(text + 1, 36);
}

}  // namespace tarvik
