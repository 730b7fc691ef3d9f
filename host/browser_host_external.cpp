// The `external` object of a page: plug-ins by their names, loadPlugin and createWindow.

#include <exdisp.h>

#include "base/bstr.h"
#include "host/browser_host.h"
#include "script/options.h"
#include "script/properties.h"
#include "script/readers.h"

namespace tarvik {

namespace {

constexpr DISPID kLoadPlugin = -6999;
constexpr DISPID kCreateWindow = -6998;

}  // namespace

STDMETHODIMP CWebBrowserHost::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    return Guard([&] {
        const std::wstring_view name(names[0]);
        if (name == L"loadPlugin" || name == L"createWindow") {
            ids[0] = name == L"loadPlugin" ? kLoadPlugin : kCreateWindow;
            return S_OK;
        }
        const DISPID id = plugins_.GetPluginId(names[0]);
        if (id == CPluginManage::kUnknownName) return DISP_E_UNKNOWNNAME;
        if (id == CPluginManage::kNotCreatedYet) return CreatePlugin(names[0], &ids[0]);
        ids[0] = id;
        return S_OK;
    });
}

// A plug-in that comes late is told what the window has been through.
HRESULT CWebBrowserHost::CreatePlugin(const wchar_t* name, DISPID* id) {
    const ComPtr<TVK::ICore> core(plugins_.Core());
    const auto browser = Query<IWebBrowser2>(Control());
    ComPtr<TVK::IPlugin> plugin;
    const HRESULT status = plugins_.CreatePlugin(name, core.Get(), browser.Get(), plugin.GetAddressOf());
    if (FAILED(status) || !plugin) return FAILED(status) ? status : E_FAIL;
    if (pageState_ != PageState::kNone) plugin->OnNavigateComplete(nullptr);
    if (pageState_ == PageState::kComplete) plugin->OnDocumentComplete(nullptr);
    *id = plugins_.GetPluginId(name);
    return S_OK;
}

STDMETHODIMP CWebBrowserHost::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO*, UINT*) {
    const ComPtr<IUnknown> alive(AsUnknown());
    return Guard([&]() -> HRESULT {
        if (!(flags & DISPATCH_METHOD)) {
            return flags & DISPATCH_PROPERTYGET ? ReadPlugin(id, result) : E_NOTIMPL;
        }
        if (id != kLoadPlugin && id != kCreateWindow) return E_NOTIMPL;
        const Call call(parameters, result);
        if (call.Count() == 0) return E_INVALIDARG;
        if (id == kLoadPlugin) return LoadPlugin(call.At(0), result);
        IDispatch* options = nullptr;
        return Read(call.At(0), options) && options ? CreateBrowserWindow(options, result) : E_INVALIDARG;
    });
}

HRESULT CWebBrowserHost::ReadPlugin(DISPID id, VARIANT* result) {
    if (!result) return E_INVALIDARG;
    ComPtr<TVK::IPlugin> plugin;
    // No object leaves the result as it stands: loadPlugin read as a property is empty.
    if (FAILED(plugins_.GetPluginObject(id, plugin.GetAddressOf()))) return S_OK;
    return Give(result, Variant::Unknown(plugin.Get()));
}

HRESULT CWebBrowserHost::LoadPlugin(const VARIANT& path, VARIANT* result) {
    BSTR text = nullptr;
    if (!Read(path, text)) return E_INVALIDARG;
    return Give(result, Outcome{plugins_.LoadPluginLibrary(std::wstring(Bstr::View(text)))});
}

HRESULT CWebBrowserHost::CreateBrowserWindow(IDispatch* object, VARIANT* result) {
    const ComPtr<TVK::ICore> core(plugins_.Core());
    if (!core) return Give(result, ComPtr<IDispatch>());
    const Options options(object);
    const auto url = options.Text(L"url");
    const Variant callback = options.Value(L"callback");
    const Variant context = options.Value(L"context");
    ComPtr<IDispatch> window;
    core->CreateBrowserWindow(url ? url->c_str() : nullptr, options.Flag(L"inherit"), &callback, &context,
                              window.GetAddressOf());
    return Give(result, std::move(window));
}

STDMETHODIMP CWebBrowserHost::GetPlugin(const wchar_t* name, IDispatch** out) {
    if (!out) return E_INVALIDARG;
    *out = nullptr;
    return Guard([&]() -> HRESULT {
        Variant plugin;
        GetScriptProperty(static_cast<IDispatch*>(this), name, &plugin);
        if (!plugin.ChangeType(VT_DISPATCH)) return E_FAIL;
        return plugin.pdispVal ? plugin.pdispVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(out))
                               : E_FAIL;
    });
}

}  // namespace tarvik
