#pragma once

#include <windows.h>

#include <array>
#include <string>

#include "atl/window.h"
#include "tarvik/com_ptr.h"
#include "tarvik/owners.h"

namespace tarvik {

// What a person does to the icon.
enum class TrayEvent { kClick, kDoubleClick, kRightClick };

inline constexpr UINT kTrayMessage = 4024;  // from the shell: the icon's number, and a mouse message
inline constexpr UINT kTrayIcon = 200;

// The icon of a window in the notification area, and the part that it takes in the window's messages.
class CTraySubclassWindow : public CWindowImpl {
  public:
    // The function stays until it is replaced or the window goes, also when its page has gone. Without a
    // window nothing is kept.
    void SetCallback(TrayEvent event, IDispatch* function);

    // What is shown by the next Add.
    void SetTip(std::wstring tip) { tip_ = std::move(tip); }
    void SetIcon(UniqueIcon icon) { icon_ = std::move(icon); }

    // The shell refuses an icon that is there already.
    void Add();
    void Remove();

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // What script gave may hold the plug-in that holds it.
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
