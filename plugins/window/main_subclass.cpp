#include "plugins/window/main_subclass.h"

#include <utility>

#include "tarvik/status.h"
#include "tarvik/variant.h"
#include "plugins/window/menu_bar.h"
#include "plugins/window/window_marks.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr UINT kFirstMenuCommand = 2000;
constexpr UINT kLastMenuCommand = 3000;

}  // namespace

void CMainSubclassWindow::SetCallback(WindowEvent event, IDispatch* function) {
    if (!Window()) return;
    // What is replaced is let go of last: its end may come back here.
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
    SetMenuBar(Window(), shown);  // the page hears of its new size, and may set another menu
}

// Only a real false refuses; a call that fails does not.
bool CMainSubclassWindow::Allows(WindowEvent event) {
    const ComPtr<IDispatch> function = callbacks_[static_cast<size_t>(event)];
    if (!function) return true;
    Variant answer;
    return FAILED(CallScriptFunction(function.Get(), {}, answer.Receive())) || !IsFalse(answer);
}

// A command with low bits set, as for a double click on the caption, is none of these; that is intended.
bool CMainSubclassWindow::AllowsCommand(WPARAM command) {
    switch (command) {
        case SC_CLOSE:
            return Allows(WindowEvent::kClose);
        case SC_MINIMIZE:
            return Allows(WindowEvent::kMinimize);
        case SC_MAXIMIZE:
            return Allows(WindowEvent::kMaximize);
        case SC_RESTORE:
            return Allows(WindowEvent::kRestore);
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
    if (SetMark(Window(), identifier.c_str(), WindowMark::kReceives)) uniqueId_ = std::move(identifier);
}

// The block is let go of before the handler runs: the handler may be sent another one of that name.
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
            Allows(WindowEvent::kClosed);
            if (isMenuOpen_) EndMenu();
            // With its window the system would end the menu, which is the object's own.
            if (menu_) SetMenuBar(Window(), nullptr);
            return false;
        case WM_SYSCOMMAND:
            return !AllowsCommand(wParam);
        case WM_GETMINMAXINFO:
            Limit(*reinterpret_cast<MINMAXINFO*>(lParam));
            return true;
        case WM_NCCALCSIZE:
            return frameless_;
        case WM_NCACTIVATE:
            Allows(wParam ? WindowEvent::kActivate : WindowEvent::kInactivate);
            return false;
        case WM_QUERYENDSESSION:
            Allows(WindowEvent::kShutdown);
            result = TRUE;
            return true;
        case WM_COMMAND:
            return RunMenuCommand(LOWORD(wParam));
        case WM_ENTERMENULOOP:
        case WM_EXITMENULOOP:
            if (!wParam) isMenuOpen_ = message == WM_ENTERMENULOOP;  // else it is a popup menu
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
