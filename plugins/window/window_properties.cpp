#include "plugins/window/window_properties.h"

#include "tarvik/status.h"

namespace tarvik {

bool SetWindowProperty(HWND window, const wchar_t* name, WindowProperty property) {
    return SetPropW(window, name, reinterpret_cast<HANDLE>(property)) != FALSE;
}

bool HasWindowProperty(HWND window, const wchar_t* name, WindowProperty property) {
    return GetPropW(window, name) == reinterpret_cast<HANDLE>(property);
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(
        [](HWND window, LPARAM list) -> BOOL {
            return SUCCEEDED(Guard([&] { reinterpret_cast<std::vector<HWND>*>(list)->push_back(window); }));
        },
        reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace tarvik
