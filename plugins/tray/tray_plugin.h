#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/tray/tray_subclass.h"

namespace tarvik {

// `tray`: the window's icon in the notification area. Plug-in, icon and functions survive a navigation and
// live until the window's last message.
class CTrayPlugin : public TablePlugin<CTrayPlugin> {
  public:
    static constexpr char kClassName[] = "CTrayPlugin";
    static std::span<const Member<CTrayPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    // By design failures of the shell are not reported. So a second icon appears only after the next `show`.
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
