#include "script/dispatch.h"

#include <oleauto.h>

#include <string>

#include "app/log/log.h"
#include "tarvik/bstr.h"
#include "tarvik/properties.h"

namespace tarvik {

HRESULT OneTypeInfo(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT DefaultTypeInfo(UINT index, LCID locale, ITypeInfo** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    INTERFACEDATA empty = {};
    return CreateDispTypeInfo(&empty, locale, out);
}

void TraceOperation(const char* className, const char* operation) {
    if (!(processLog.flags & kLogTrace)) return;
    TARVIK_TRACE((std::string(className) + "::" + operation).c_str());
}

void LogUnknownName(const char* className, const wchar_t* name) {
    if (!(processLog.flags & kLogError)) return;
    TARVIK_ERROR((std::string(className) + "::GetIDsOfNames").c_str(), L"Not implement name: %s", name);
}

bool LocaleNameRules::SameName(std::wstring_view given, std::wstring_view member) {
    if (given.empty()) return false;
    const Bstr left(given);
    const Bstr right(member);
    return VarBstrCmp(left.Get(), right.Get(), kScriptLocale, 0) == static_cast<HRESULT>(VARCMP_EQ);
}

STDMETHODIMP CDispatchBase::QueryInterface(REFIID iid, void** out) {
    if (!out) return E_INVALIDARG;
    const HRESULT status = ComObject::QueryInterface(iid, out);
    return status == E_NOINTERFACE ? E_NOTIMPL : status;
}

}  // namespace tarvik
