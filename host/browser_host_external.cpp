// The object `external` of a page: plug-ins by name, loadPlugin and createWindow.

#include <exdisp.h>

#include "app/log/log.h"
#include "host/browser_host.h"
#include "script/arguments.h"
#include "tarvik/bstr.h"
#include "tarvik/call.h"
#include "tarvik/properties.h"
#include "tarvik/script_object.h"

namespace tarvik {

STDMETHODIMP CWebBrowserHost::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    TARVIK_TRACE("CWebBrowserHost::GetIDsOfNames");
    if (count == 0 || !names || !names[0] || !ids) return E_INVALIDARG;
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return Guard([&] { return FindMember(names[0], ids); });
}

HRESULT CWebBrowserHost::FindMember(const std::wstring& name, DISPID* id) {
    if (name == L"loadPlugin") {
        *id = CPluginManage::kLoadPlugin;
    } else if (name == L"createWindow") {
        *id = CPluginManage::kCreateWindow;
    } else {
        const DISPID known = plugins_.GetPluginId(name);
        if (known == CPluginManage::kUnknownName) return DISP_E_UNKNOWNNAME;
        if (known == CPluginManage::kNotCreatedYet) return CreatePlugin(name, id);
        *id = known;
    }
    return S_OK;
}

// A plug-in that is created late gets the events that it missed.
HRESULT CWebBrowserHost::CreatePlugin(const std::wstring& name, DISPID* id) {
    const ComPtr<TVK::ICore> core(plugins_.Core());
    const auto browser = Query<IWebBrowser2>(Control());
    // The page may run before CWebBrowser has set the context with its control.
    if (core) plugins_.SetContext(core.Get(), browser.Get());
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
    TARVIK_TRACE("CWebBrowserHost::Invoke");
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return Guard([&]() -> HRESULT {
        if (!(flags & DISPATCH_METHOD)) {
            return flags & DISPATCH_PROPERTYGET ? ReadPlugin(id, result) : E_NOTIMPL;
        }
        if (id != CPluginManage::kLoadPlugin && id != CPluginManage::kCreateWindow) return E_NOTIMPL;
        const Call call(parameters, result);
        if (call.Count() == 0) return E_INVALIDARG;
        if (id == CPluginManage::kLoadPlugin) return LoadPlugin(call.At(0), result);
        IDispatch* options = nullptr;
        return FromVariant(call.At(0), options) && options ? CreateBrowserWindow(options, result)
                                                           : E_INVALIDARG;
    });
}

HRESULT CWebBrowserHost::ReadPlugin(DISPID id, VARIANT* result) {
    if (!result) return E_INVALIDARG;
    ComPtr<TVK::IPlugin> plugin;
    // An id without an object reads as empty, such as that of loadPlugin.
    if (FAILED(plugins_.GetPluginObject(id, plugin.GetAddressOf()))) return S_OK;
    return SetResult(result, Variant::Unknown(plugin.Get()));
}

HRESULT CWebBrowserHost::LoadPlugin(const VARIANT& path, VARIANT* result) {
    BSTR text = nullptr;
    if (!FromVariant(path, text)) return E_INVALIDARG;
    return SetResult(result, Outcome{plugins_.LoadPluginLibrary(std::wstring(Bstr::View(text)))});
}

HRESULT CWebBrowserHost::CreateBrowserWindow(IDispatch* object, VARIANT* result) {
    const ComPtr<TVK::ICore> core(plugins_.Core());
    if (!core) return SetResult(result, ComPtr<IDispatch>());
    const ScriptObject options(object);
    const auto url = options.Get<std::wstring>(L"url");
    const Variant callback = options.Get(L"callback");
    const Variant context = options.Get(L"context");
    ComPtr<IDispatch> window;
    core->CreateBrowserWindow(url ? url->c_str() : nullptr, options.Get<bool>(L"inherit", false), &callback,
                              &context, window.GetAddressOf());
    return SetResult(result, std::move(window));
}

STDMETHODIMP CWebBrowserHost::GetPlugin(const wchar_t* name, IDispatch** out) {
    TARVIK_TRACE("CWebBrowserHost::GetPlugin");
    if (!out) return E_INVALIDARG;
    *out = nullptr;
    return Guard([&]() -> HRESULT {
        Variant plugin;
        GetScriptProperty(static_cast<IDispatch*>(this), name, &plugin);
        ThrowIfFailed(VariantChangeType(&plugin, &plugin, 0, VT_DISPATCH));
        return plugin.pdispVal ? plugin.pdispVal->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(out))
                               : E_FAIL;
    });
}

}  // namespace tarvik
