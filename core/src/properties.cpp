#include "tarvik/properties.h"

#include <dispex.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "tarvik/com_ptr.h"

namespace tarvik {

namespace {

HRESULT InvokeMethod(IDispatch* object, DISPID id, std::span<const VARIANT* const> arguments,
                     VARIANT* result) {
    constexpr size_t kFew = 6;
    std::array<VARIANT, kFew> few;
    std::vector<VARIANT> many(arguments.size() > kFew ? arguments.size() : 0);
    VARIANT* const reversed = many.empty() ? few.data() : many.data();
    // A bitwise copy: the callee borrows the values.
    std::transform(arguments.rbegin(), arguments.rend(), reversed,
                   [](const VARIANT* value) { return *value; });
    DISPPARAMS parameters = {reversed, nullptr, static_cast<UINT>(arguments.size()), 0};
    // Always with a result slot: in a call from another thread without one, Wine leaks a returned object.
    Variant unwanted;
    return object->Invoke(id, IID_NULL, kScriptLocale, DISPATCH_METHOD, &parameters,
                          result ? result : &unwanted, nullptr, nullptr);
}

HRESULT InvokePut(IDispatch* object, DISPID id, WORD flags, const VARIANT* value) {
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters = {const_cast<VARIANT*>(value), &named, 1, 1};
    return object->Invoke(id, IID_NULL, kScriptLocale, flags, &parameters, nullptr, nullptr, nullptr);
}

bool IsPutByReference(const VARIANT& value) {
    return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN || (value.vt & (VT_ARRAY | VT_BYREF)) != 0;
}

}  // namespace

HRESULT FindScriptMember(IDispatch* object, const wchar_t* name, DISPID* id) {
    if (!name) return E_INVALIDARG;
    LPOLESTR first = const_cast<LPOLESTR>(name);
    return object->GetIDsOfNames(IID_NULL, &first, 1, kScriptLocale, id);
}

HRESULT GetScriptProperty(IDispatch* object, const wchar_t* name, VARIANT* value) {
    if (!value) return E_POINTER;
    if (!object) return E_INVALIDARG;
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = FindScriptMember(object, name, &id); FAILED(status)) return status;
    DISPPARAMS none = {};
    return object->Invoke(id, IID_NULL, kScriptLocale, DISPATCH_PROPERTYGET, &none, value, nullptr, nullptr);
}

Variant ReadScriptProperty(IDispatch* object, const wchar_t* name) {
    Variant value;
    if (FAILED(GetScriptProperty(object, name, &value))) value.Clear();
    return value;
}

HRESULT PutScriptProperty(IDispatch* object, DISPID id, const VARIANT* value) {
    if (!value) return E_POINTER;
    if (!object) return E_INVALIDARG;
    if (IsPutByReference(*value) && SUCCEEDED(InvokePut(object, id, DISPATCH_PROPERTYPUTREF, value)))
        return S_OK;
    return InvokePut(object, id, DISPATCH_PROPERTYPUT, value);
}

HRESULT SetScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value) {
    if (!object || !name) return E_INVALIDARG;
    const auto extensible = Query<IDispatchEx>(object);
    if (!extensible) return E_NOINTERFACE;
    DISPID id = DISPID_UNKNOWN;
    const Bstr text(name);
    if (const HRESULT status = extensible->GetDispID(text.Get(), fdexNameEnsure, &id); FAILED(status))
        return status;
    return PutScriptProperty(object, id, &value);
}

HRESULT AssignScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value) {
    if (!object) return E_INVALIDARG;
    DISPID id = DISPID_UNKNOWN;
    if (FAILED(FindScriptMember(object, name, &id))) return SetScriptProperty(object, name, value);
    return PutScriptProperty(object, id, &value);
}

HRESULT CallScriptFunction(IDispatch* function, std::span<const VARIANT* const> arguments, VARIANT* result) {
    return function ? InvokeMethod(function, DISPID_VALUE, arguments, result) : E_POINTER;
}

bool IsFalse(const VARIANT& value) {
    return value.vt == VT_BOOL && value.boolVal == VARIANT_FALSE;
}

HRESULT CallScriptMember(IDispatch* object, const wchar_t* name, std::span<const VARIANT* const> arguments,
                         VARIANT* result) {
    if (!object) return E_INVALIDARG;
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = FindScriptMember(object, name, &id); FAILED(status)) return status;
    return InvokeMethod(object, id, arguments, result);
}

}  // namespace tarvik
