#include "plugins/window/main_subclass.h"

#include <utility>

#include "base/running.h"
#include "host/plugin_registry/window_numbers.h"
#include "plugins/window/menu_bar.h"
#include "plugins/window/window_properties.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"
#include "tarvik/variant.h"

namespace tarvik {

void CMainSubclassWindow::SetCallback(WindowEvent event, IDispatch* function) {
    if (!Window()) return;
    // Released last: releasing a function may call back into this object.
    ComPtr<IDispatch> changed(function);
    callbacks_[static_cast<size_t>(event)].Swap(changed);
}

void CMainSubclassWindow::SetMenu(ComPtr<TVK::IMenu> menu) {
    if (!Window()) return;
    const HMENU shown = menu->GetMenu();
    menu_.Swap(menu);
    if (isMenuOpen_) {
        EndMenu();
        replacedMenus_.push_back(menu);
    }
    SetMenuBar(Window(), shown);  // resizes the page, which may set another menu
}

// Only a function that returns false refuses; a failed call does not. A call of a page that does not respond
// would hold up the window, and its end: a window that is destroyed is deactivated first.
bool CMainSubclassWindow::Raise(WindowEvent event) {
    const ComPtr<IDispatch> function = callbacks_[static_cast<size_t>(event)];
    if (!function || !IsRunning(function.Get())) return true;
    Variant result;
    return FAILED(CallScriptFunction(function.Get(), {}, result.Receive())) || !IsFalse(result);
}

// By design a command with low bits set, as from a double click on the caption, raises no event.
bool CMainSubclassWindow::IsCommandAllowed(WPARAM command) {
    switch (command) {
        case SC_CLOSE:
            return Raise(WindowEvent::kClose);
        case SC_MINIMIZE:
            return Raise(WindowEvent::kMinimize);
        case SC_MAXIMIZE:
            return Raise(WindowEvent::kMaximize);
        case SC_RESTORE:
            return Raise(WindowEvent::kRestore);
        default:
            return true;
    }
}

void CMainSubclassWindow::Limit(MINMAXINFO& info) const {
    const auto limit = [](LONG& size, ULONG limit) {
        if (limit != TrackLimits::kNone) size = static_cast<LONG>(limit);
    };
    limit(info.ptMinTrackSize.x, limits_.minWidth);
    limit(info.ptMinTrackSize.y, limits_.minHeight);
    limit(info.ptMaxTrackSize.x, limits_.maxWidth);
    limit(info.ptMaxTrackSize.y, limits_.maxHeight);
}

bool CMainSubclassWindow::RunMenuCommand(UINT id) {
    const ComPtr<TVK::IMenu> menu = menu_;
    return menu && id >= kFirstMenuCommand && id <= kLastMenuCommand && menu->Exec(id) != 1;
}

void CMainSubclassWindow::SetUniqueId(std::wstring identifier) {
    if (SetWindowProperty(Window(), identifier.c_str(), WindowProperty::kReceives))
        uniqueId_ = std::move(identifier);
}

// Releases the block before it calls the handler, which may be sent another block of the same name.
HRESULT CMainSubclassWindow::Receive(DWORD sender, size_t size) {
    return Guard([&] {
        auto message = ReadSharedBlock(sender, Window(), size);
        return message ? handlers_.Call(std::move(*message)) : E_FAIL;
    });
}

void CMainSubclassWindow::OnFinalMessage(HWND) {
    const auto callbacks = std::exchange(callbacks_, {});
    const auto replaced = std::exchange(replacedMenus_, {});
    ComPtr<TVK::IMenu> menu;
    menu_.Swap(menu);
    handlers_.Clear();
}

bool CMainSubclassWindow::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_DESTROY:
            Raise(WindowEvent::kClosed);
            if (isMenuOpen_) EndMenu();
            // The system destroys a menu with its window, but this one belongs to its object.
            if (menu_) SetMenuBar(Window(), nullptr);
            return false;
        case WM_SYSCOMMAND:
            return !IsCommandAllowed(wParam);
        case WM_GETMINMAXINFO:
            Limit(*reinterpret_cast<MINMAXINFO*>(lParam));
            return true;
        case WM_NCCALCSIZE:
            return frameless_;
        case WM_NCACTIVATE:
            Raise(wParam ? WindowEvent::kActivate : WindowEvent::kInactivate);
            return false;
        case WM_QUERYENDSESSION:
            Raise(WindowEvent::kShutdown);
            result = TRUE;
            return true;
        case WM_COMMAND:
            return RunMenuCommand(LOWORD(wParam));
        case WM_ENTERMENULOOP:
        case WM_EXITMENULOOP:
            if (!wParam) isMenuOpen_ = message == WM_ENTERMENULOOP;  // wParam is TRUE for a popup menu
            if (!isMenuOpen_) std::exchange(replacedMenus_, {});
            return false;
        case kShowMessage:
            ShowWindow(Window(), static_cast<int>(lParam));
            return true;
        case kBusMessage:
            result = Receive(static_cast<DWORD>(wParam), static_cast<size_t>(lParam));
            return true;
        default:
            return false;
    }
}

}  // namespace tarvik
