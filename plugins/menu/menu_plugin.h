#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `menu`: creates menus.
class CMenuManagePlugin : public TablePlugin<CMenuManagePlugin> {
  public:
    static constexpr char kClassName[] = "CMenuManagePlugin";
    static std::span<const Member<CMenuManagePlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    HRESULT CreateMenu(const Call& call);

  private:
    ComPtr<TVK::ICore> core_;
};

}  // namespace tarvik
