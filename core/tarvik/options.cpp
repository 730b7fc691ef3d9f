#include "tarvik/options.h"

#include "tarvik/arguments.h"
#include "tarvik/properties.h"

namespace tarvik {

Variant Options::Value(const wchar_t* name) const {
    return ReadScriptProperty(object_.Get(), name);
}

std::optional<std::wstring> Options::Text(const wchar_t* name) const {
    BSTR text = nullptr;
    const Variant value = Value(name);
    if (!FromVariant(value, text)) return std::nullopt;
    return std::wstring(Bstr::View(text));
}

bool Options::Flag(const wchar_t* name, bool absent) const {
    bool flag = false;
    return FromVariant(Value(name), flag) ? flag : absent;
}

std::optional<LONG> Options::Integer(const wchar_t* name) const {
    AnyInt32 number;
    if (!FromVariant(Value(name), number)) return std::nullopt;
    return number.value;
}

ComPtr<IDispatch> Options::Object(const wchar_t* name) const {
    return ObjectIn(Value(name));
}

ComPtr<IDispatch> Options::Function(const wchar_t* name) const {
    const Variant value = Value(name);
    return ComPtr<IDispatch>(value.Is(VT_DISPATCH) ? value.pdispVal : nullptr);
}

}  // namespace tarvik
