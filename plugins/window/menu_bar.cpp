#include "plugins/window/menu_bar.h"

#include <functional>
#include <iterator>
#include <string_view>

#include "base/wine.h"
#include "tarvik/owners.h"

namespace tarvik {

namespace {

constexpr UINT kGetMenuOfPopup = 0x1E1;  // MN_GETHMENU

using Condition = std::function<bool(HWND window)>;

// The first top-level window of this thread that meets the condition, or null.
HWND FindWindowOfThread(const Condition& condition) {
    struct Search {
        const Condition& condition;
        HWND found = nullptr;
    } search{condition};
    const auto onWindow = [](HWND window, LPARAM parameter) -> BOOL {
        auto& search = *reinterpret_cast<Search*>(parameter);
        if (search.condition(window)) search.found = window;
        return !search.found;
    };
    EnumThreadWindows(GetCurrentThreadId(), onWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool IsPopupOf(HWND window, HMENU menu) {
    wchar_t name[8] = {};
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wstring_view(name) == L"#32768" &&
           SendMessageW(window, kGetMenuOfPopup, 0, 0) == reinterpret_cast<LRESULT>(menu);
}

// A menu under Wine refers to one window: the last whose menu bar it became, or the popup that shows it. Wine
// destroys that window when a popup closes or when the menu is destroyed, and SetMenu does not clear the
// reference. This makes the menu refer to a window that may be destroyed.
void ReferToWindow(HWND window, HMENU menu) {
    SetMenu(window, menu);
    SetMenu(window, nullptr);  // else the window would destroy the menu
}

// A menu that becomes a menu bar while its popup is open must still refer to the popup.
void RestorePopupReference(HMENU menu) {
    const HWND popup = FindWindowOfThread([&](HWND window) { return IsPopupOf(window, menu); });
    if (popup) ReferToWindow(popup, menu);
}

// Makes a former menu bar refer to another window that shows it, or to a temporary one.
void ReplaceReference(HMENU menu) {
    if (const HWND other = FindWindowOfThread([&](HWND window) { return GetMenu(window) == menu; })) {
        SetMenu(other, menu);
        return;
    }
    const UniqueWindow temporary(CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr,
                                                 nullptr, GetModuleHandleW(nullptr), nullptr));
    ReferToWindow(temporary.Get(), menu);
}

}  // namespace

void SetMenuBar(HWND window, HMENU menu) {
    const HMENU previous = GetMenu(window);
    if (!SetMenu(window, menu)) SetMenu(window, nullptr);
    if (!IsWine()) return;
    // SetMenu resizes the page, which may have set another menu.
    if (menu && GetMenu(window) == menu) RestorePopupReference(menu);
    if (previous && GetMenu(window) != previous) ReplaceReference(previous);
}

}  // namespace tarvik
