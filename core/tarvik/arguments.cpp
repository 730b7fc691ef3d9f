#include "tarvik/arguments.h"

#include <algorithm>
#include <climits>
#include <iterator>

namespace tarvik {

namespace {

// Empty if the system cannot convert the value.
Variant Converted(const VARIANT& value, VARTYPE type) {
    Variant converted;
    VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, type);
    return converted;
}

}  // namespace

ComPtr<IDispatch> ObjectIn(const VARIANT& value) {
    if (value.vt == VT_DISPATCH) return value.pdispVal;
    return value.vt == VT_UNKNOWN ? Query<IDispatch>(value.punkVal) : nullptr;
}

bool FromVariant(const VARIANT& value, bool& out) {
    out = value.boolVal == VARIANT_TRUE;
    return value.vt == VT_BOOL;
}

bool FromVariant(const VARIANT& value, double& out) {
    constexpr VARTYPE kNumbers[] = {VT_I4,  VT_R8,  VT_I1,  VT_I2,  VT_I8,   VT_INT,
                                    VT_UI1, VT_UI2, VT_UI4, VT_UI8, VT_UINT, VT_R4};
    if (std::ranges::find(kNumbers, value.vt) == std::end(kNumbers)) return false;
    const Variant number = Converted(value, VT_R8);
    out = number.dblVal;
    return number.Is(VT_R8);
}

bool FromVariant(const VARIANT& value, int& out) {
    double number = 0;
    if (!FromVariant(value, number) || !(number >= INT_MIN && number <= INT_MAX)) return false;
    out = static_cast<int>(number);
    return out == number;
}

bool FromVariant(const VARIANT& value, std::wstring& out) {
    if (value.vt != VT_BSTR) return false;
    out = Bstr::View(value.bstrVal);
    return true;
}

bool FromVariant(const VARIANT& value, Variant& out) {
    out = Variant::Copy(value);
    return true;
}

bool FromVariant(const VARIANT& value, BSTR& out) {
    out = value.bstrVal;
    return value.vt == VT_BSTR;
}

bool FromVariant(const VARIANT& value, IDispatch*& out) {
    out = value.pdispVal;
    return value.vt == VT_DISPATCH;
}

bool FromVariant(const VARIANT& value, ComPtr<IDispatch>& out) {
    out = ObjectIn(value);
    return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
}

bool FromVariant(const VARIANT& value, CoercedInt& out) {
    out.value = Converted(value, VT_I4).lVal;
    return true;
}

bool FromVariant(const VARIANT& value, CoercedText& out) {
    const Variant converted = Converted(value, VT_BSTR);
    out.isNull = !converted.bstrVal;
    out.value = Bstr::View(converted.bstrVal);
    return true;
}

bool FromVariant(const VARIANT& value, AnyInt32& out) {
    out.value = value.lVal;
    return value.vt == VT_I4 || value.vt == VT_INT || value.vt == VT_UI4 || value.vt == VT_UINT;
}

bool FromVariant(const VARIANT& value, StrictInt32& out) {
    out.value = value.lVal;
    return value.vt == VT_I4;
}

bool FromVariant(const VARIANT& value, Int64& out) {
    const Variant converted = Converted(value, VT_I8);
    out.value = converted.llVal;
    return converted.Is(VT_I8);
}

bool FromVariant(const VARIANT& value, UInt64& out) {
    const Variant converted = Converted(value, VT_UI8);
    out.value = converted.ullVal;
    return converted.Is(VT_UI8);
}

bool FromVariant(const VARIANT& value, Number& out) {
    const Variant converted = Converted(value, VT_R8);
    out.value = converted.dblVal;
    return converted.Is(VT_R8);
}

bool FromVariant(const VARIANT& value, Bits32& out) {
    Variant converted = Converted(value, VT_I4);
    if (!converted.Is(VT_I4)) converted = Converted(value, VT_UI4);
    out.value = converted.ulVal;
    return !converted.Is(VT_EMPTY);
}

bool FromVariant(const VARIANT& value, AnyValue& out) {
    out.value = &value;
    return true;
}

HRESULT SetResult(VARIANT* slot, Variant&& result) {
    if (slot) result.MoveInto(slot);
    return S_OK;
}

Variant ToVariant(Bstr&& value) {
    Variant text;
    text.bstrVal = value.Detach();
    text.vt = VT_BSTR;
    return text;
}

}  // namespace tarvik
