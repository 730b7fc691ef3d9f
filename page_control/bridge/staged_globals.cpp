#include "page_control/bridge/staged_globals.h"

#include <algorithm>

#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

STDMETHODIMP StagedGlobals::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP StagedGlobals::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    const auto found = std::ranges::find(values_, names[0], &Value::first);
    if (found == values_.end()) return DISP_E_UNKNOWNNAME;
    *ids = static_cast<DISPID>(found - values_.begin()) + 1;
    return S_OK;
}

STDMETHODIMP StagedGlobals::GetDispID(BSTR name, DWORD flags, DISPID* out) {
    if (!name || !out) return E_INVALIDARG;
    LPOLESTR text = name;
    const HRESULT status = GetIDsOfNames(IID_NULL, &text, 1, 0, out);
    if (SUCCEEDED(status) || !(flags & fdexNameEnsure)) return status;
    return Guard([&] {
        values_.emplace_back(Bstr::View(name), Variant());
        *out = static_cast<DISPID>(values_.size());
    });
}

STDMETHODIMP StagedGlobals::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                                   EXCEPINFO*, UINT*) {
    if (id < 1 || static_cast<size_t>(id) > values_.size()) return DISP_E_MEMBERNOTFOUND;
    if (!(flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF))) return E_NOTIMPL;
    if (!parameters || parameters->cArgs == 0) return E_INVALIDARG;
    return Guard([&] { values_[id - 1].second = Variant::Copy(parameters->rgvarg[0]); });
}

STDMETHODIMP StagedGlobals::InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, IServiceProvider*) {
    return Invoke(id, IID_NULL, locale, flags, parameters, result, exception, nullptr);
}

}  // namespace tarvik
