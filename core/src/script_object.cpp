#include "tarvik/script_object.h"

#include <dispex.h>

#include "tarvik/bstr.h"

namespace tarvik {

ScriptObject ScriptObject::Function(const wchar_t* name) const {
    const Variant value = Get(name);
    return value.Is(VT_DISPATCH) ? value.pdispVal : nullptr;
}

bool ScriptObject::Has(const wchar_t* name) const {
    DISPID id = DISPID_UNKNOWN;
    return object_ && SUCCEEDED(FindScriptMember(object_.Get(), name, &id));
}

std::vector<std::wstring> ScriptObject::Names() const {
    if (!object_) throw StatusError(E_INVALIDARG);
    const auto enumerable = As<IDispatchEx>();
    if (!enumerable) throw StatusError(E_NOINTERFACE);
    std::vector<std::wstring> names;
    HRESULT status = S_OK;
    for (DISPID id = DISPID_STARTENUM;;) {
        status = enumerable->GetNextDispID(fdexEnumDefault, id, &id);
        if (status != S_OK) break;
        Bstr name;
        ThrowIfFailed(enumerable->GetMemberName(id, name.Receive()));
        names.emplace_back(name.View());
    }
    ThrowIfFailed(status);
    return names;
}

template bool ScriptObject::Get(const wchar_t* name, bool absent) const;
template std::wstring ScriptObject::Get(const wchar_t* name, std::wstring absent) const;
template std::optional<std::wstring> ScriptObject::Get<std::wstring>(const wchar_t* name) const;

size_t ScriptObject::Length() const {
    const auto length = Get<double>(L"length");
    if (!length || !(*length >= 0 && *length <= UINT32_MAX)) throw StatusError(E_INVALIDARG);
    return static_cast<size_t>(*length);
}

void ScriptObject::Put(const wchar_t* name, const VARIANT& value) const {
    ThrowIfFailed(AssignScriptProperty(object_.Get(), name, value));
}

Variant ScriptObject::CallMember(const wchar_t* name, std::span<const VARIANT* const> arguments) const {
    Variant result;
    ThrowIfFailed(CallScriptMember(object_.Get(), name, arguments, &result));
    return result;
}

Variant ScriptObject::CallFunction(std::span<const VARIANT* const> arguments) const {
    Variant result;
    ThrowIfFailed(CallScriptFunction(object_.Get(), arguments, &result));
    return result;
}

}  // namespace tarvik
