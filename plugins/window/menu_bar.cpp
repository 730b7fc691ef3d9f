#include "plugins/window/menu_bar.h"

#include <functional>
#include <iterator>
#include <string_view>

#include "tarvik/owners.h"
#include "base/wine.h"

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

// A menu under Wine refers to one window, the last whose bar it became or the popup that shows it, and
// destroys that window when a popup closes or when the menu is destroyed. SetMenu alone never takes the
// reference back, so this leads it to a window that may be destroyed.
void ReferTo(HWND window, HMENU menu) {
    SetMenu(window, menu);
    SetMenu(window, nullptr);  // or the window would destroy the menu
}

// The reference of a menu that became a bar while it hangs open stays with its popup.
void KeepPopup(HMENU menu) {
    const HWND popup = FindWindowOfThread([&](HWND window) { return IsPopupOf(window, menu); });
    if (popup) ReferTo(popup, menu);
}

// The reference of a former bar goes to a window that still shows it, or to one that ends here.
void ForgetWindow(HMENU menu) {
    if (const HWND other = FindWindowOfThread([&](HWND window) { return GetMenu(window) == menu; })) {
        SetMenu(other, menu);
        return;
    }
    const UniqueWindow passing(CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                                               GetModuleHandleW(nullptr), nullptr));
    ReferTo(passing.Get(), menu);
}

}  // namespace

void SetMenuBar(HWND window, HMENU menu) {
    const HMENU previous = GetMenu(window);
    if (!SetMenu(window, menu)) SetMenu(window, nullptr);
    if (!IsWine()) return;
    // The page may have set another bar meanwhile.
    if (menu && GetMenu(window) == menu) KeepPopup(menu);
    if (previous && GetMenu(window) != previous) ForgetWindow(previous);
}

}  // namespace tarvik
