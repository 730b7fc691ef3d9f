#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "atl/window.h"
#include "host/plugin_registry/window_numbers.h"
#include "tarvik/com_ptr.h"
#include "tarvik/owners.h"

namespace tarvik {

enum class TrayEvent { kClick, kDoubleClick, kRightClick };

// The icon of a window in the notification area. Subclasses the window to receive the icon's messages.
class CTraySubclassWindow : public CWindowImpl {
  public:
    // Retains the function until it is replaced or the window is destroyed, even after its page has been
    // destroyed. Does nothing without a window.
    void SetCallback(TrayEvent event, IDispatch* function);

    // Take effect with the next Add.
    void SetTip(std::wstring tip) { tip_ = std::move(tip); }
    void SetIcon(UniqueIcon icon) { icon_ = std::move(icon); }

    // Add does nothing if the icon is shown: the shell rejects a second one.
    void Add();
    void Remove();

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // Releases the functions: they may hold the plug-in, which would leave a reference cycle.
    void OnFinalMessage(HWND window) override;

  private:
    void OnMouse(LPARAM message) const;
    void Raise(TrayEvent event) const;

    std::array<ComPtr<IDispatch>, 3> callbacks_;
    bool isShown_ = false;
    UniqueIcon icon_;
    std::wstring tip_;
};

}  // namespace tarvik
