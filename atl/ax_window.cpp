#include "atl/ax_window.h"

#include "atl/module.h"

namespace tarvik {

namespace {

ComPtr<IUnknown> QueryWindow(HWND window, UINT message) {
    ComPtr<IUnknown> object;
    // Attach would add a second reference with mingw-w64.
    *object.GetAddressOf() = reinterpret_cast<IUnknown*>(SendMessageW(window, message, 0, 0));
    return object;
}

}  // namespace

bool AtlAxWinInit() {
    WNDCLASSEXW description = {sizeof description};
    if (GetClassInfoExW(appModule.Instance(), kAxWindowClass, &description)) return true;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = appModule.Instance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    description.lpszClassName = kAxWindowClass;
    return AtlGetHostMessage() && AtlGetControlMessage() && RegisterClassExW(&description);
}

UINT AtlGetHostMessage() {
    static const UINT message = RegisterWindowMessageW(L"WM_ATLGETHOST");
    return message;
}

UINT AtlGetControlMessage() {
    static const UINT message = RegisterWindowMessageW(L"WM_ATLGETCONTROL");
    return message;
}

ComPtr<IUnknown> AtlAxGetHost(HWND window) {
    return QueryWindow(window, AtlGetHostMessage());
}

ComPtr<IUnknown> AtlAxGetControl(HWND window) {
    return QueryWindow(window, AtlGetControlMessage());
}

}  // namespace tarvik
