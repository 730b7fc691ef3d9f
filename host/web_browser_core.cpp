// TVK::ICore: the services of a browser window for its plug-ins.

#include <dispex.h>
#include <mshtml.h>

#include "atl/ax_window.h"
#include "base/status.h"
#include "host/hosted_browser.h"
#include "host/page_address.h"
#include "host/web_browser.h"
#include "script/object.h"
#include "tarvik/bstr.h"
#include "tarvik/properties.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

// Defines a global variable in the script of a window's document.
void DefineGlobal(HWND window, const wchar_t* name, const VARIANT* value) {
    if (!value) return;
    ComPtr<IDispatch> script;
    const auto html = Query<IHTMLDocument2>(DocumentIn(window).Get());
    if (html && SUCCEEDED(html->get_Script(script.GetAddressOf())))
        SetScriptProperty(script.Get(), name, *value);
}

}  // namespace

STDMETHODIMP CWebBrowser::GetPlugin(const wchar_t* name, IDispatch** out) {
    if (out) *out = nullptr;
    const ComPtr<IWebbrowserHost> host = host_;
    return host ? host->GetPlugin(name, out) : E_UNEXPECTED;
}

STDMETHODIMP CWebBrowser::CreateScriptObject(const wchar_t* typeName, IDispatch** out) {
    return tarvik::CreateScriptObject(typeName, out);
}

STDMETHODIMP CWebBrowser::ResolveUrl(const wchar_t* url, BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] {
        Bstr location;
        if (const auto browser = BrowserIn(Window())) browser->get_LocationURL(location.Receive());
        *out = Bstr(ResolveAgainst(url ? url : L"", std::wstring(location.View()))).Detach();
    });
}

STDMETHODIMP CWebBrowser::CreateBrowserWindow(const wchar_t* url, BOOL inherit, const VARIANT* callback,
                                              const VARIANT* context, IDispatch** out) {
    if (out) *out = nullptr;
    return Guard([&]() -> HRESULT {
        Bstr page;
        // Without a URL, CreateHidden gets null and opens the page of the first window.
        if (url) ResolveUrl(url, page.Receive());
        const auto browser = MakeCom<CWebBrowser>();
        SetLastError(ERROR_SUCCESS);
        const HWND window = browser->CreateHidden(inherit ? Window() : nullptr, url ? page.Get() : nullptr);
        if (!window) return LastErrorStatus();
        DefineGlobal(window, L"windowContext", context);
        DefineGlobal(window, L"windowCallback", callback);
        const auto host = Query<IWebbrowserHost>(AtlAxGetHost(window).Get());
        if (out && host) host->GetPlugin(L"window", out);
        return S_OK;  // the window exists, with or without its plug-in
    });
}

}  // namespace tarvik
