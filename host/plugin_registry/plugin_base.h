#pragma once

#include <exdisp.h>

#include <string>

#include "host/plugin_registry/plugin_registry.h"
#include "script/dispatch.h"
#include "tarvik/library.h"

// The bases of built-in plug-ins, and their registration:
//
//     class CTrayPlugin : public TablePlugin<CTrayPlugin> { ... };
//     const bool registered = RegisterBuiltIn<CTrayPlugin>(L"tray", TVK::kRetainedPlugin);
namespace tarvik {

template <class Self, class... More>
using TablePlugin = TableDispatch<Self, PluginInterface<Self>, More...>;

template <class Self, class Rules, class... More>
using SmallPlugin = SmallDispatch<Self, Rules, PluginInterface<Self>, More...>;

template <class Plugin>
HRESULT STDAPICALLTYPE CreatePlugin(REFIID iid, void** out) {
    return CreateInstance<Plugin>(iid, out);
}

template <class Plugin>
bool RegisterBuiltIn(const wchar_t* name, int flags) {
    return RegisterPlugin(name, CreatePlugin<Plugin>, flags) == S_OK;
}

void LogNoBrowser(const char* className);

// A TablePlugin that stores the services and the browser of its window. Both belong to the main thread, so no
// worker may hold a reference to such a plug-in: it could be the last one to release it.
template <class Self>
class WindowPlugin : public TablePlugin<Self> {
  public:
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override {
        if (!core || !browser) return E_INVALIDARG;
        if (core_) return S_OK;
        browser_ = Query<IWebBrowser2>(browser);
        if (!browser_) {
            LogNoBrowser(Self::kClassName);
            return E_INVALIDARG;
        }
        core_ = core;
        return S_OK;
    }

  protected:
    TVK::ICore* Core() const { return core_.Get(); }

    std::wstring Resolve(BSTR path) const { return ResolvePath(Core(), std::wstring(Bstr::View(path))); }
    std::wstring Resolve(const std::wstring& path) const { return ResolvePath(Core(), path); }

  private:
    ComPtr<TVK::ICore> core_;
    ComPtr<IWebBrowser2> browser_;
};

// A small plug-in that stores the browser of its window.
template <class Self>
class BrowserPlugin : public SmallPlugin<Self, LocaleNameRules> {
  public:
    STDMETHODIMP Initialize(TVK::ICore*, IUnknown* browser) override {
        browser_ = Query<IWebBrowser2>(browser);
        return browser_ ? S_OK : E_NOINTERFACE;
    }

  private:
    ComPtr<IWebBrowser2> browser_;
};

}  // namespace tarvik
