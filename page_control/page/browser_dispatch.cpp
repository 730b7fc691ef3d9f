#include "page_control/page/browser_dispatch.h"

namespace tarvik {

STDMETHODIMP BrowserDispatch::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT BrowserDispatch::LoadType() {
    if (type_) return S_OK;
    ComPtr<ITypeLib> library;
    const HRESULT status = LoadRegTypeLib(LIBID_SHDocVw, 1, 1, LOCALE_NEUTRAL, library.GetAddressOf());
    return FAILED(status) ? status : library->GetTypeInfoOfGuid(__uuidof(IWebBrowser2), type_.GetAddressOf());
}

STDMETHODIMP BrowserDispatch::GetTypeInfo(UINT index, LCID, ITypeInfo** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    const HRESULT status = LoadType();
    return FAILED(status) ? status : CopyTo(type_, out);
}

STDMETHODIMP BrowserDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const HRESULT status = LoadType();
    return FAILED(status) ? status : DispGetIDsOfNames(type_.Get(), names, count, ids);
}

STDMETHODIMP BrowserDispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    const ComPtr<IUnknown> alive(this);
    const HRESULT status = LoadType();
    return FAILED(status) ? status
                          : DispInvoke(static_cast<IWebBrowser2*>(this), type_.Get(), id, flags, parameters,
                                       result, exception, argument);
}

}  // namespace tarvik
