#include "plugins/window/window_marks.h"

#include "tarvik/status.h"

namespace tarvik {

bool SetMark(HWND window, const wchar_t* name, WindowMark mark) {
    return SetPropW(window, name, reinterpret_cast<HANDLE>(mark)) != FALSE;
}

bool HasMark(HWND window, const wchar_t* name, WindowMark mark) {
    return GetPropW(window, name) == reinterpret_cast<HANDLE>(mark);
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
