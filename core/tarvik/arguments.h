#pragma once

#include <windows.h>
#include <oaidl.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "tarvik/bstr.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

// The argument converters: how values of script become C++ values (FromVariant) and C++ values become values
// of script (ToVariant). A type of your own becomes an argument or a result by an overload beside it.
namespace tarvik {

// Whole numbers. JavaScript passes VT_I4 for whole numbers in 32 bits and VT_R8 for all others.

// By the system's conversion from any type; 0 if that fails.
struct CoercedInt {
    LONG value = 0;
};
// VT_I4, VT_INT, VT_UI4 or VT_UINT; the 32 bits are taken as they are.
struct AnyInt32 {
    LONG value = 0;
};
// VT_I4 only.
struct StrictInt32 {
    LONG value = 0;
};
// 32 bits, from anything that converts to a signed or to an unsigned integer of that width.
struct Bits32 {
    ULONG value = 0;
};

// By the system's conversion; refused if that fails.
struct Int64 {
    LONGLONG value = 0;
};
struct UInt64 {
    ULONGLONG value = 0;
};
struct Number {
    double value = 0;
};

// A text by the system's conversion from any type; null if that fails.
struct CoercedText {
    std::wstring value;
    bool isNull = true;

    const wchar_t* Get() const { return value.c_str(); }
};

// Borrowed for the call.
struct AnyValue {
    const VARIANT* value = nullptr;
};

// The object in a VT_DISPATCH, or in a VT_UNKNOWN, as which engines pass plug-ins. Null for other types.
ComPtr<IDispatch> ObjectIn(const VARIANT& value);

// False if the value has another type; `out` then means nothing.
bool FromVariant(const VARIANT& value, bool& out);    // VT_BOOL; only VARIANT_TRUE is true
bool FromVariant(const VARIANT& value, int& out);     // a number of any type that is whole and fits
bool FromVariant(const VARIANT& value, double& out);  // a number of any type
bool FromVariant(const VARIANT& value, CoercedInt& out);
bool FromVariant(const VARIANT& value, AnyInt32& out);
bool FromVariant(const VARIANT& value, StrictInt32& out);
bool FromVariant(const VARIANT& value, Bits32& out);
bool FromVariant(const VARIANT& value, Int64& out);
bool FromVariant(const VARIANT& value, UInt64& out);
bool FromVariant(const VARIANT& value, Number& out);
bool FromVariant(const VARIANT& value, BSTR& out);          // borrowed; may be null
bool FromVariant(const VARIANT& value, std::wstring& out);  // VT_BSTR; a null one is empty
bool FromVariant(const VARIANT& value, CoercedText& out);
bool FromVariant(const VARIANT& value, IDispatch*& out);         // VT_DISPATCH; borrowed; may be null
bool FromVariant(const VARIANT& value, ComPtr<IDispatch>& out);  // VT_DISPATCH or VT_UNKNOWN; may be null
bool FromVariant(const VARIANT& value, Variant& out);            // any type; a copy
bool FromVariant(const VARIANT& value, AnyValue& out);
template <class T>
bool FromVariant(const VARIANT& value, std::optional<T>& out) {
    return FromVariant(value, out.emplace());
}

// A whole number as a result: HRESULT and LONG are one C++ type, so it has a type of its own.
struct Integer {
    LONG value;
};

// A boolean that is true exactly when the status is S_OK; the call itself succeeds.
struct Outcome {
    HRESULT status;
};

// Those that allocate throw when out of memory.
inline Variant ToVariant(Variant&& value) {
    return std::move(value);
}
inline Variant ToVariant(std::nullptr_t) {
    return Variant::Null();
}
inline Variant ToVariant(bool value) {
    return Variant::Bool(value);
}
inline Variant ToVariant(Integer value) {
    return Variant::I4(value.value);
}
inline Variant ToVariant(Outcome value) {
    return Variant::Bool(value.status == S_OK);
}
inline Variant ToVariant(double value) {
    return Variant::R8(value);
}
inline Variant ToVariant(Number value) {
    return Variant::R8(value.value);
}
inline Variant ToVariant(uint8_t value) {
    return Variant::UI1(value);
}
inline Variant ToVariant(uint16_t value) {
    return Variant::UI2(value);
}
inline Variant ToVariant(uint32_t value) {
    return Variant::UI4(value);
}
// VT_UI8, which the old engine cannot calculate with; a double is a number everywhere.
inline Variant ToVariant(uint64_t value) {
    return Variant::UI8(value);
}
// Other whole numbers: VT_I4 if the value fits, else VT_R8.
template <std::integral T>
Variant ToVariant(T value) {
    return std::in_range<LONG>(value) ? Variant::I4(static_cast<LONG>(value))
                                      : Variant::R8(static_cast<double>(value));
}
Variant ToVariant(Bstr&& value);  // a null one stays null
inline Variant ToVariant(std::wstring_view value) {
    return Variant::Text(value);
}
inline Variant ToVariant(const std::wstring& value) {
    return Variant::Text(value);
}
inline Variant ToVariant(const wchar_t* value) {
    return Variant::Text(value);
}
inline Variant ToVariant(IDispatch* value) {
    return Variant::Object(value);
}
inline Variant ToVariant(const ComPtr<IDispatch>& value) {
    return Variant::Object(value.Get());
}
template <class T>
Variant ToVariant(std::optional<T> value) {  // null if there is none
    return value ? ToVariant(std::move(*value)) : Variant::Null();
}

// The result of a handler becomes the result of the call. `slot` is null if script wants no value.
template <class T>
HRESULT SetResult(VARIANT* slot, T&& result) {
    Variant value = ToVariant(std::forward<T>(result));
    if (slot) value.MoveInto(slot);
    return S_OK;
}
// A status is no value.
inline HRESULT SetResult(VARIANT*, HRESULT status) {
    return status;
}

}  // namespace tarvik
