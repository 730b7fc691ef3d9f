#include "base/dpi.h"

#include <algorithm>

#include "base/module_function.h"

namespace tarvik {

namespace {

// Of the main monitor when the user logged on: for versions of Windows in which all monitors have the same.
UINT SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? static_cast<UINT>(dpi) : USER_DEFAULT_SCREEN_DPI;
}

UINT DpiOf(HMONITOR monitor) {
    constexpr int kEffective = 0;
    static auto* const query =
        FindFunction<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)>(L"shcore.dll", "GetDpiForMonitor");
    UINT x = 0, y = 0;
    return query && SUCCEEDED(query(monitor, kEffective, &x, &y)) ? x : SystemDpi();
}

BOOL CALLBACK Raise(HMONITOR monitor, HDC, RECT*, LPARAM highest) {
    auto& dpi = *reinterpret_cast<UINT*>(highest);
    dpi = std::max(dpi, DpiOf(monitor));
    return TRUE;
}

}  // namespace

UINT DpiOf(HWND window) {
    static auto* const query = FindFunction<UINT WINAPI(HWND)>(L"user32.dll", "GetDpiForWindow");
    const UINT dpi = query ? query(window) : SystemDpi();
    return dpi ? dpi : SystemDpi();
}

UINT HighestDpi() {
    UINT dpi = 0;
    EnumDisplayMonitors(nullptr, nullptr, Raise, reinterpret_cast<LPARAM>(&dpi));
    return dpi ? dpi : SystemDpi();
}

}  // namespace tarvik
