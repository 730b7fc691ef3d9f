#include "tests/plugins/support/page_core.h"

#include <exdisp.h>

#include "base/status.h"
#include "host/page_address.h"
#include "host/registry/plugin_registry.h"

namespace tarvik {

STDMETHODIMP PageCore::GetPlugin(const wchar_t* name, IDispatch** out) {
    const PluginEntry* const entry = FindPlugin(name);
    ComPtr<TVK::IPlugin> plugin;
    if (!entry ||
        FAILED(entry->factory(__uuidof(TVK::IPlugin), reinterpret_cast<void**>(plugin.GetAddressOf()))))
        return E_FAIL;
    ComPtr<IUnknown> browser;
    CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                     reinterpret_cast<void**>(browser.GetAddressOf()));
    plugin->Initialize(this, browser.Get());
    return HandOut(Query<IDispatch>(plugin.Get()), out);
}

STDMETHODIMP PageCore::ResolveUrl(const wchar_t* url, BSTR* out) {
    return Guard([&] { *out = Bstr(ResolveAgainst(url, location_)).Detach(); });
}

ComPtr<IDispatch> PluginsOfPage::Plugin(const wchar_t* name) const {
    ComPtr<IDispatch> plugin;
    EXPECT_EQ(core_->GetPlugin(name, plugin.GetAddressOf()), S_OK) << name;
    return plugin;
}

}  // namespace tarvik
