#include "tests/support/members.h"

#include <algorithm>

#include "script/object.h"
#include "tarvik/properties.h"

namespace tarvik {

HRESULT IdOf(IDispatch* object, const wchar_t* name, DISPID* id) {
    LPOLESTR first = const_cast<LPOLESTR>(name);
    return object->GetIDsOfNames(IID_NULL, &first, 1, kScriptLocale, id);
}

InvokeResult InvokeMember(IDispatch* object, const wchar_t* name, WORD flags,
                          std::vector<Variant> arguments) {
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = IdOf(object, name, &id); FAILED(status)) return {status, {}};
    std::reverse(arguments.begin(), arguments.end());
    std::vector<VARIANT> bits(arguments.begin(), arguments.end());
    DISPID named = DISPID_PROPERTYPUT;
    const bool put = (flags & DISPATCH_PROPERTYPUT) != 0;
    DISPPARAMS parameters = {bits.data(), put ? &named : nullptr, static_cast<UINT>(bits.size()),
                             put ? 1u : 0u};
    InvokeResult out{};
    out.status =
        object->Invoke(id, IID_NULL, kScriptLocale, flags, &parameters, &out.value, nullptr, nullptr);
    return out;
}

InvokeResult GetMember(IDispatch* object, const wchar_t* name) {
    return InvokeMember(object, name, DISPATCH_PROPERTYGET, {});
}

InvokeResult PutMember(IDispatch* object, const wchar_t* name, Argument value) {
    std::vector<Variant> arguments;
    arguments.push_back(std::move(value));
    return InvokeMember(object, name, DISPATCH_PROPERTYPUT, std::move(arguments));
}

OptionObject::OptionObject() : object_(MakeCom<CObject>().Get()) {}

const OptionObject& OptionObject::Put(const wchar_t* name, const Variant& value) const {
    DISPID id = DISPID_UNKNOWN;
    if (SUCCEEDED(IdOf(object_.Get(), name, &id))) {
        PutScriptProperty(object_.Get(), id, &value);
    } else {
        SetScriptProperty(object_.Get(), name, value);
    }
    return *this;
}

}  // namespace tarvik
