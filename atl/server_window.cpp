#include "atl/server_window.h"

#include <cwchar>

#include "app/log/log.h"

namespace tarvik {

HWND GetIEServerWnd(HWND mainWindow) {
    constexpr const wchar_t* kMissing[] = {L"Query EmbedWnd failed.", L"Query DocView failed.",
                                           L"Query IEServer failed."};
    constexpr int kNameLength = 260;
    HWND window = mainWindow;
    for (const wchar_t* const missing : kMissing) {
        window = GetWindow(window, GW_CHILD);
        if (!window) {
            TARVIK_ERROR("GetIEServerWnd", missing);
            return nullptr;
        }
    }
    wchar_t name[kNameLength] = {};
    GetClassNameW(window, name, kNameLength);
    if (_wcsicmp(name, L"Internet Explorer_Server") == 0) return window;
    TARVIK_ERROR("GetIEServerWnd", L"IEServer class name mismatch.");
    return nullptr;
}

}  // namespace tarvik
