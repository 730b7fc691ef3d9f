#pragma once

#include <windows.h>

#include <array>
#include <vector>

#include "atl/window.h"
#include "plugins/window/message_handlers.h"
#include "tarvik/com_ptr.h"
#include "tarvik/menu.h"

namespace tarvik {

// The page can refuse the first four.
enum class WindowEvent { kClose, kMinimize, kMaximize, kRestore, kClosed, kActivate, kInactivate, kShutdown };

// The sizes to which the user can resize a window, in pixels.
struct TrackLimits {
    static constexpr ULONG kNone = 0xFFFFFFFF;
    ULONG minWidth = kNone;
    ULONG minHeight = kNone;
    ULONG maxWidth = kNone;
    ULONG maxHeight = kNone;
};

// Subclasses the top-level window for its page.
class CMainSubclassWindow : public CWindowImpl {
  public:
    TrackLimits& Limits() { return limits_; }
    void SetFrameless(bool frameless) { frameless_ = frameless; }

    // Retains the function until it is replaced or the window is destroyed, even after its page has been
    // destroyed: calls then fail, which does not refuse the event. Does nothing without a window.
    void SetCallback(WindowEvent event, IDispatch* function);

    TVK::IMenu* Menu() const { return menu_.Get(); }
    void SetMenu(ComPtr<TVK::IMenu> menu);

    MessageHandlers& Handlers() { return handlers_; }
    // The identifier by which senders address the window. Earlier ones stay valid. An identifier that the
    // system rejects changes nothing.
    const std::wstring& UniqueId() const { return uniqueId_; }
    void SetUniqueId(std::wstring identifier);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // Releases functions and menus: they may hold the plug-in, which would be a cycle.
    void OnFinalMessage(HWND window) override;

  private:
    bool Raise(WindowEvent event);  // false if the function refuses
    bool IsCommandAllowed(WPARAM command);
    void Limit(MINMAXINFO& info) const;
    bool RunMenuCommand(UINT id);
    HRESULT Receive(DWORD sender, size_t size);

    TrackLimits limits_;
    bool frameless_ = false;  // the client area covers the window
    ComPtr<TVK::IMenu> menu_;
    bool isMenuOpen_ = false;                        // the menu bar
    std::vector<ComPtr<TVK::IMenu>> replacedMenus_;  // retained while the system may still show them
    std::array<ComPtr<IDispatch>, 8> callbacks_;
    MessageHandlers handlers_;
    std::wstring uniqueId_;
};

}  // namespace tarvik
