#pragma once

#include <exdisp.h>

#include "host/page_address.h"
#include "host/plugin_registry/plugin_registry.h"
#include "tarvik/plugin.h"
#include "tarvik/status.h"
#include "tests/support/test.h"

namespace tarvik {

// The services of a browser window for a page with that path, without a window.
class PageCore : public ComObject<As<TVK::ICore>> {
  public:
    explicit PageCore(const std::wstring& page) : location_(L"file:///" + page) {}

    // Always creates a new plug-in object.
    STDMETHODIMP GetPlugin(const wchar_t* name, IDispatch** out) override {
        const PluginEntry* const entry = FindPlugin(name);
        ComPtr<TVK::IPlugin> plugin;
        if (!entry ||
            FAILED(entry->factory(__uuidof(TVK::IPlugin), reinterpret_cast<void**>(plugin.GetAddressOf()))))
            return E_FAIL;
        ComPtr<IUnknown> browser;
        CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                         reinterpret_cast<void**>(browser.GetAddressOf()));
        plugin->Initialize(this, browser.Get());
        return CopyTo(Query<IDispatch>(plugin.Get()), out);
    }
    STDMETHODIMP ResolveUrl(const wchar_t* url, BSTR* out) override {
        return Guard([&] { *out = Bstr(ResolveAgainst(url, location_)).Detach(); });
    }
    STDMETHODIMP CreateBrowserWindow(const wchar_t*, BOOL, const VARIANT*, const VARIANT*,
                                     IDispatch**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP_(HWND) GetWindowHandle() override { return nullptr; }
    STDMETHODIMP CreateScriptObject(const wchar_t*, IDispatch**) override { return E_NOTIMPL; }

  private:
    std::wstring location_;
};

// A plug-in in a page in a temporary folder.
class PluginOfPage : public testing::Test {
  protected:
    explicit PluginOfPage(const wchar_t* name) : plugin_(Plugin(name)) {}

    // A new object of that name.
    ComPtr<IDispatch> Plugin(const wchar_t* name) const {
        ComPtr<IDispatch> plugin;
        EXPECT_EQ(core_->GetPlugin(name, plugin.GetAddressOf()), S_OK) << name;
        return plugin;
    }

    std::string Call(const wchar_t* member, auto&&... arguments) const {
        return CallText(plugin_.Get(), member, std::forward<decltype(arguments)>(arguments)...);
    }

    const TempFolder folder_;
    const ComPtr<PageCore> core_ = MakeCom<PageCore>(folder_ / L"page.html");
    ComPtr<IDispatch> plugin_;
};

}  // namespace tarvik
