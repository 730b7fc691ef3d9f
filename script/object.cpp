#include "script/object.h"

#include "script/dispatch.h"
#include "tarvik/bstr.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr DISPID kPush = -8999;
constexpr DISPID kLength = -8998;

// The last id assigned to a property. All objects of the process share the sequence; main thread only.
DISPID lastPropertyId = -6000;

// Skips the ids of the array members push and length.
DISPID NextPropertyId() {
    DISPID next = lastPropertyId;
    do {
        --next;
    } while (next == kPush || next == kLength);
    return next;
}

}  // namespace

STDMETHODIMP CObject::GetTypeInfoCount(UINT* count) {
    return OneTypeInfo(count);
}

STDMETHODIMP CObject::GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) {
    return DefaultTypeInfo(index, locale, out);
}

STDMETHODIMP CObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const wchar_t* const name = FirstName(names, count);
    if (!name || !ids) return E_INVALIDARG;
    const auto found = names_.find(std::wstring_view(name));
    if (found == names_.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = found->second;
    return S_OK;
}

STDMETHODIMP CObject::GetDispID(BSTR name, DWORD flags, DISPID* out) {
    if (!out) return E_INVALIDARG;
    LPOLESTR text = name ? name : const_cast<LPOLESTR>(L"");
    if (!(flags & fdexNameEnsure)) return GetIDsOfNames(IID_NULL, &text, 1, kScriptLocale, out);
    return Guard([&] {
        const auto [entry, added] = names_.try_emplace(text, NextPropertyId());
        if (!added) return S_FALSE;  // by design without its id
        lastPropertyId = entry->second;
        values_.emplace(entry->second, Property{&entry->first, Variant()});
        *out = entry->second;
        return S_OK;
    });
}

STDMETHODIMP CObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO*, UINT*) {
    const auto found = values_.find(id);
    if (found == values_.end()) return E_INVALIDARG;
    return Guard([&]() -> HRESULT {
        if (flags & DISPATCH_PROPERTYGET) {
            if (!result) return E_INVALIDARG;
            Variant::Copy(found->second.value).MoveInto(result);
            return S_OK;
        }
        if (flags & DISPATCH_PROPERTYPUT) {
            if (!parameters || !parameters->rgvarg) return E_INVALIDARG;
            found->second.value = Variant::Copy(parameters->rgvarg[0]);
            return S_OK;
        }
        return E_NOTIMPL;
    });
}

STDMETHODIMP CObject::InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, IServiceProvider*) {
    return Invoke(id, IID_NULL, locale, flags, parameters, result, exception, nullptr);
}

STDMETHODIMP CObject::GetMemberName(DISPID id, BSTR* out) {
    if (!out) return E_INVALIDARG;
    const auto found = values_.find(id);
    if (found == values_.end()) return DISP_E_UNKNOWNNAME;
    const std::wstring& name = *found->second.name;
    *out = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
    return *out ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP CObject::GetNextDispID(DWORD, DISPID id, DISPID* out) {
    if (!out) return E_INVALIDARG;
    const auto next = id == DISPID_STARTENUM ? values_.begin() : values_.upper_bound(id);
    if (next == values_.end()) return S_FALSE;
    *out = next->first;
    return S_OK;
}

STDMETHODIMP CArray::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) {
    const wchar_t* const first = FirstName(names, count);
    if (!first || !ids) return E_INVALIDARG;
    const std::wstring_view name(first);
    if (name != L"push" && name != L"length") return CObject::GetIDsOfNames(iid, names, count, locale, ids);
    ids[0] = name == L"push" ? kPush : kLength;
    return S_OK;
}

STDMETHODIMP CArray::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                            VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (id == kPush) {
        const bool given = parameters && parameters->cArgs > 0;
        return Guard([&] { Push(given ? &parameters->rgvarg[parameters->cArgs - 1] : nullptr); });
    }
    if (id == kLength) {
        if (!(flags & DISPATCH_PROPERTYGET) || !result) return E_INVALIDARG;
        Variant::UI8(Count()).MoveInto(result);
        return S_OK;
    }
    return CObject::Invoke(id, iid, locale, flags, parameters, result, exception, argument);
}

void CArray::Push(const VARIANT* value) {
    DISPID id = DISPID_VALUE;
    const Bstr name(DecimalText(Count()));
    GetDispID(name.Get(), fdexNameEnsure, &id);
    if (value) PutScriptProperty(this, id, value);
}

HRESULT CreateScriptObject(const wchar_t* typeName, IDispatch** out) {
    if (!out) return E_INVALIDARG;
    *out = nullptr;
    return Guard([&]() -> HRESULT {
        if (typeName && _wcsicmp(typeName, L"object") == 0) return CopyTo(MakeCom<CObject>(), out);
        if (typeName && _wcsicmp(typeName, L"array") == 0) return CopyTo(MakeCom<CArray>(), out);
        return E_NOINTERFACE;
    });
}

}  // namespace tarvik
