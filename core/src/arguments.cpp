#include "tarvik/arguments.h"

#include <algorithm>
#include <climits>
#include <iterator>

namespace tarvik {

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
    const Variant number = Variant::Converted(value, VT_R8);
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
