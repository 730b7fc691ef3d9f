#pragma once

#include <exdisp.h>

#include "host/registry/plugin_registry.h"
#include "script/dispatch.h"

// What built-in plug-ins are made of:
//
//     class CTrayPlugin : public TablePlugin<CTrayPlugin> { ... };
//     const bool registered = RegisterBuiltIn<CTrayPlugin>(L"tray", TVK::kRetainedPlugin);
namespace tarvik {

template <class Self>
using PluginFace = As<TVK::IPluginImpl<Self>, TVK::IPlugin>;

template <class Self>
using TablePlugin = TableDispatch<Self, PluginFace<Self>>;

template <class Self, SameName kSame, class... More>
using SmallPlugin = SmallDispatch<Self, kSame, PluginFace<Self>, More...>;

template <class Plugin>
HRESULT STDAPICALLTYPE MakePlugin(REFIID iid, void** out) {
    return Guard([&] { return MakeCom<Plugin>()->QueryInterface(iid, out); });
}

template <class Plugin>
bool RegisterBuiltIn(const wchar_t* name, int flags) {
    return RegisterPlugin(name, MakePlugin<Plugin>, flags) == S_OK;
}

// A small plug-in that keeps the page's browser from Initialize.
template <class Self>
class BrowserPlugin : public SmallPlugin<Self, SameInLocale> {
  public:
    STDMETHODIMP Initialize(TVK::ICore*, IUnknown* browser) override {
        browser_ = Query<IWebBrowser2>(browser);
        return browser_ ? S_OK : E_NOINTERFACE;
    }

  private:
    ComPtr<IWebBrowser2> browser_;
};

}  // namespace tarvik
