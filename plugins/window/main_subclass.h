#pragma once

#include <windows.h>

#include <array>
#include <vector>

#include "atl/window.h"
#include "tarvik/com_ptr.h"
#include "tarvik/menu.h"
#include "plugins/window/message_handlers.h"

namespace tarvik {

// What a page can be told of its window. It can refuse the first four.
enum class WindowEvent { kClose, kMinimize, kMaximize, kRestore, kClosed, kActivate, kInactivate, kShutdown };

// How small and how large the user can make a window, in pixels.
struct TrackLimits {
    static constexpr ULONG kNone = 0xFFFFFFFF;
    ULONG minWidth = kNone;
    ULONG minHeight = kNone;
    ULONG maxWidth = kNone;
    ULONG maxHeight = kNone;
};

// Private messages, also of other processes.
inline constexpr UINT kShowMessage = 3024;  // the second parameter is the command for ShowWindow
inline constexpr UINT kBusMessage = 3025;   // the sender's process id, and the size of what it says in bytes

// The part that a page takes in the messages of its top-level window.
class CMainSubclassWindow : public CWindowImpl {
  public:
    TrackLimits& Limits() { return limits_; }
    void SetFrameless(bool frameless) { frameless_ = frameless; }

    // The function stays until it is replaced or the window goes, also when its page has gone; then calling
    // it fails, which is no refusal. Without a window nothing is kept.
    void SetCallback(WindowEvent event, IDispatch* function);

    TVK::IMenu* Menu() const { return menu_.Get(); }
    void SetMenu(ComPtr<TVK::IMenu> menu);

    MessageHandlers& Handlers() { return handlers_; }
    // The identifier that the window receives messages for; it goes on to receive for earlier ones. One that
    // the system refuses changes nothing.
    const std::wstring& UniqueId() const { return uniqueId_; }
    void SetUniqueId(std::wstring identifier);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // What script gave may hold the plug-in that holds it.
    void OnFinalMessage(HWND window) override;

  private:
    bool Allows(WindowEvent event);
    bool AllowsCommand(WPARAM command);
    void Limit(MINMAXINFO& info) const;
    bool RunMenuCommand(UINT id);
    HRESULT Receive(DWORD sender, size_t size);

    TrackLimits limits_;
    bool frameless_ = false;  // the client area covers the whole window
    ComPtr<TVK::IMenu> menu_;
    bool isMenuOpen_ = false;                        // the user is in the menu bar
    std::vector<ComPtr<TVK::IMenu>> replacedMenus_;  // while it was open; the system may still use them
    std::array<ComPtr<IDispatch>, 8> callbacks_;
    MessageHandlers handlers_;
    std::wstring uniqueId_;
};

}  // namespace tarvik
