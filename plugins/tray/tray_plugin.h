#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/tray/tray_subclass.h"

namespace tarvik {

// `tray`: one icon of the window in the notification area. It lives until the window has handled its last
// message; icon and functions stay when the page changes.
class CTrayPlugin : public TablePlugin<CTrayPlugin> {
  public:
    static constexpr char kClassName[] = "CTrayPlugin";
    static std::span<const Member<CTrayPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    // What the shell refuses is not reported; that is intended. So a second icon is only kept for the next
    // `show`.
    HRESULT AddTray(BSTR tip, std::optional<BSTR> icon);
    HRESULT Show();
    HRESULT Hide();
    template <TrayEvent kEvent>
    HRESULT SetCallback(IDispatch* function) {
        tray_.SetCallback(kEvent, function);
        return S_OK;
    }

  private:
    ComPtr<TVK::ICore> core_;
    CTraySubclassWindow tray_;
};

}  // namespace tarvik
