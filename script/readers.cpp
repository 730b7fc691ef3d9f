#include "script/readers.h"

namespace tarvik {

namespace {

// Empty where the system cannot convert the value.
Variant Converted(const VARIANT& value, VARTYPE kind) {
    Variant converted;
    VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, kind);
    return converted;
}

}  // namespace

ComPtr<IDispatch> ObjectIn(const VARIANT& value) {
    if (value.vt == VT_DISPATCH) return value.pdispVal;
    return value.vt == VT_UNKNOWN ? Query<IDispatch>(value.punkVal) : nullptr;
}

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

bool Read(const VARIANT& value, ComPtr<IDispatch>& out) {
    out = ObjectIn(value);
    return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
}

bool Read(const VARIANT& value, LooseInt& out) {
    out.value = Converted(value, VT_I4).lVal;
    return true;
}

bool Read(const VARIANT& value, LooseText& out) {
    const Variant converted = Converted(value, VT_BSTR);
    out.isNull = !converted.bstrVal;
    out.value = Bstr::View(converted.bstrVal);
    return true;
}

bool Read(const VARIANT& value, ExactInt& out) {
    out.value = value.lVal;
    return value.vt == VT_I4 || value.vt == VT_INT || value.vt == VT_UI4 || value.vt == VT_UINT;
}

bool Read(const VARIANT& value, ConstantInt& out) {
    out.value = value.lVal;
    return value.vt == VT_I4;
}

bool Read(const VARIANT& value, Int64& out) {
    const Variant converted = Converted(value, VT_I8);
    out.value = converted.llVal;
    return converted.Is(VT_I8);
}

bool Read(const VARIANT& value, UInt64& out) {
    const Variant converted = Converted(value, VT_UI8);
    out.value = converted.ullVal;
    return converted.Is(VT_UI8);
}

bool Read(const VARIANT& value, Number& out) {
    const Variant converted = Converted(value, VT_R8);
    out.value = converted.dblVal;
    return converted.Is(VT_R8);
}

bool Read(const VARIANT& value, Bits32& out) {
    Variant converted = Converted(value, VT_I4);
    if (!converted.Is(VT_I4)) converted = Converted(value, VT_UI4);
    out.value = converted.ulVal;
    return !converted.Is(VT_EMPTY);
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

HRESULT Give(VARIANT* slot, Number value) {
    return Give(slot, Variant::R8(value.value));
}

HRESULT Give(VARIANT* slot, Outcome value) {
    return Give(slot, value.status == S_OK);
}

HRESULT Give(VARIANT* slot, uint8_t value) {
    return Give(slot, Variant::UI1(value));
}

HRESULT Give(VARIANT* slot, uint16_t value) {
    return Give(slot, Variant::UI2(value));
}

HRESULT Give(VARIANT* slot, uint32_t value) {
    return Give(slot, Variant::UI4(value));
}

HRESULT Give(VARIANT* slot, uint64_t value) {
    return Give(slot, Variant::UI8(value));
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
