#include "script/readers.h"

namespace tarvik {

bool Read(const VARIANT& value, bool& out) {
    out = value.boolVal == VARIANT_TRUE;
    return value.vt == VT_BOOL;
}

bool Read(const VARIANT& value, BSTR& out) {
    out = value.bstrVal;
    return value.vt == VT_BSTR;
}

bool Read(const VARIANT& value, IDispatch*& out) {
    out = value.pdispVal;
    return value.vt == VT_DISPATCH;
}

bool Read(const VARIANT& value, LooseInt& out) {
    Variant converted;
    VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, VT_I4);
    out.value = converted.vt == VT_I4 ? converted.lVal : 0;
    return true;
}

bool Read(const VARIANT& value, ExactInt& out) {
    out.value = value.lVal;
    return value.vt == VT_I4 || value.vt == VT_INT || value.vt == VT_UI4 || value.vt == VT_UINT;
}

bool Read(const VARIANT& value, AnyValue& out) {
    out.value = &value;
    return true;
}

HRESULT Give(VARIANT* slot, Variant&& value) {
    if (slot) value.MoveInto(slot);
    return S_OK;
}

HRESULT Give(VARIANT* slot, bool value) {
    return Give(slot, Variant::Bool(value));
}

HRESULT Give(VARIANT* slot, Integer value) {
    return Give(slot, Variant::I4(value.value));
}

HRESULT Give(VARIANT* slot, Outcome value) {
    return Give(slot, value.status == S_OK);
}

HRESULT Give(VARIANT* slot, Bstr&& value) {
    Variant text;
    text.bstrVal = value.Detach();
    text.vt = VT_BSTR;
    return Give(slot, std::move(text));
}

HRESULT Give(VARIANT* slot, ComPtr<IDispatch>&& value) {
    return Give(slot, Variant::Object(value.Get()));
}

}  // namespace tarvik
