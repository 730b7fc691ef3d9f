#include "script/arguments.h"

#include "tarvik/bstr.h"

namespace tarvik {

bool FromVariant(const VARIANT& value, CoercedInt& out) {
    out.value = Variant::Converted(value, VT_I4).lVal;
    return true;
}

bool FromVariant(const VARIANT& value, CoercedText& out) {
    const Variant converted = Variant::Converted(value, VT_BSTR);
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
    const Variant converted = Variant::Converted(value, VT_I8);
    out.value = converted.llVal;
    return converted.Is(VT_I8);
}

bool FromVariant(const VARIANT& value, UInt64& out) {
    const Variant converted = Variant::Converted(value, VT_UI8);
    out.value = converted.ullVal;
    return converted.Is(VT_UI8);
}

bool FromVariant(const VARIANT& value, Number& out) {
    const Variant converted = Variant::Converted(value, VT_R8);
    out.value = converted.dblVal;
    return converted.Is(VT_R8);
}

bool FromVariant(const VARIANT& value, Bits32& out) {
    Variant converted = Variant::Converted(value, VT_I4);
    if (!converted.Is(VT_I4)) converted = Variant::Converted(value, VT_UI4);
    out.value = converted.ulVal;
    return !converted.Is(VT_EMPTY);
}

bool FromVariant(const VARIANT& value, AnyValue& out) {
    out.value = &value;
    return true;
}

}  // namespace tarvik
