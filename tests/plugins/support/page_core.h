#pragma once

#include "host/contract/plugin.h"
#include "tests/support/test.h"

namespace tarvik {

// What plug-ins ask of their window, for a page with that path, and without the window.
class PageCore : public ComObject<As<TVK::ICore>> {
  public:
    explicit PageCore(const std::wstring& page) : location_(L"file:///" + page) {}

    // A new object of a plug-in, also of a retained one.
    STDMETHODIMP GetPlugin(const wchar_t* name, IDispatch** out) override;
    STDMETHODIMP ResolveUrl(const wchar_t* url, BSTR* out) override;
    STDMETHODIMP CreateBrowserWindow(const wchar_t*, BOOL, const VARIANT*, const VARIANT*,
                                     IDispatch**) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP_(HWND) GetWindowHandle() override { return nullptr; }
    STDMETHODIMP CreateScriptObject(const wchar_t*, IDispatch**) override { return E_NOTIMPL; }

  private:
    std::wstring location_;
};

// A page's plug-ins. The page lies in a folder of the test's own.
class PluginsOfPage : public testing::Test {
  protected:
    ComPtr<IDispatch> Plugin(const wchar_t* name) const;

    const TempFolder folder_;

  private:
    const ComPtr<PageCore> core_ = MakeCom<PageCore>(folder_ / L"page.html");
};

}  // namespace tarvik
