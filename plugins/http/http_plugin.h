#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `http`: creates HTTP clients. If an object cannot be created, the result is empty and the call succeeds.
class CHttpPlugin : public TablePlugin<CHttpPlugin> {
  public:
    static constexpr char kClassName[] = "CHttpPlugin";
    static std::span<const Member<CHttpPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    HRESULT CreateClient(const Call& call);
    HRESULT CreateXmlHttp(const Call& call);

  private:
    ComPtr<TVK::ICore> core_;
};

}  // namespace tarvik
