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

// The argument converters: FromVariant converts a script value to a C++ value, ToVariant converts back. To
// pass a type of your own to or from script, write an overload beside the type.
//
// Most handlers need only bool, int, double, std::wstring, ScriptObject, Variant and std::optional of these.
// The structs below select other conversions; "converts" there means the system's conversion,
// VariantChangeType, which also accepts strings and booleans. JavaScript passes a whole number that fits 32
// bits as VT_I4, and any other number as VT_R8.
namespace tarvik {

// Any type that converts to a signed 32-bit integer; 0 for a value that does not.
struct CoercedInt {
    LONG value = 0;
};
// VT_I4, VT_INT, VT_UI4 or VT_UINT; unsigned values keep their bits.
struct AnyInt32 {
    LONG value = 0;
};
// VT_I4 only.
struct StrictInt32 {
    LONG value = 0;
};
// Any type that converts to a signed or to an unsigned 32-bit integer; signed values keep their bits.
struct Bits32 {
    ULONG value = 0;
};
// Any type that converts to a signed 64-bit integer.
struct Int64 {
    LONGLONG value = 0;
};
// Any type that converts to an unsigned 64-bit integer.
struct UInt64 {
    ULONGLONG value = 0;
};
// Any type that converts to a double.
struct Number {
    double value = 0;
};

// Any type that converts to a string. `isNull` is true for a value that does not convert, and for a null
// BSTR.
struct CoercedText {
    std::wstring value;
    bool isNull = true;

    const wchar_t* Get() const { return value.c_str(); }
};

// The argument itself, of any type; borrowed for the call.
struct AnyValue {
    const VARIANT* value = nullptr;
};

// The object in a VT_DISPATCH, or in a VT_UNKNOWN: engines pass plug-ins as VT_UNKNOWN. Null for other types,
// and for an object without IDispatch.
ComPtr<IDispatch> ObjectIn(const VARIANT& value);

// False if the value has the wrong type; `out` is then undefined. Conversions to std::wstring, CoercedText
// and Variant copy the value, and throw std::bad_alloc or StatusError when out of memory.
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
bool FromVariant(const VARIANT& value, BSTR& out);          // VT_BSTR; borrowed; may be null
bool FromVariant(const VARIANT& value, std::wstring& out);  // VT_BSTR; a null BSTR becomes an empty string
bool FromVariant(const VARIANT& value, CoercedText& out);
bool FromVariant(const VARIANT& value, IDispatch*& out);         // VT_DISPATCH; borrowed; may be null
bool FromVariant(const VARIANT& value, ComPtr<IDispatch>& out);  // VT_DISPATCH or VT_UNKNOWN; may be null
bool FromVariant(const VARIANT& value, Variant& out);            // any type; a copy
bool FromVariant(const VARIANT& value, AnyValue& out);
template <class T>
bool FromVariant(const VARIANT& value, std::optional<T>& out) {
    return FromVariant(value, out.emplace());
}

// A number as the result of a handler, VT_I4. A handler that returns a plain LONG returns a status, because
// LONG and HRESULT are the same C++ type.
struct Integer {
    LONG value;
};

// A boolean as the result of a handler: true for S_OK, false for any other status. The call itself succeeds.
struct Outcome {
    HRESULT status;
};

// Strings are copied, and objects get a further reference. Throws std::bad_alloc when out of memory.
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
// Other integers: VT_I4 if the value fits, otherwise VT_R8.
template <std::integral T>
Variant ToVariant(T value) {
    return std::in_range<LONG>(value) ? Variant::I4(static_cast<LONG>(value))
                                      : Variant::R8(static_cast<double>(value));
}
Variant ToVariant(Bstr&& value);  // takes the string over; a null BSTR stays null
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
Variant ToVariant(std::optional<T> value) {  // VT_NULL for an empty one
    return value ? ToVariant(std::move(*value)) : Variant::Null();
}

// Stores the result of a handler in the call's result slot, which is null if script ignores the result.
HRESULT SetResult(VARIANT* slot, Variant&& result);
template <class T>
HRESULT SetResult(VARIANT* slot, T&& result) {
    return SetResult(slot, ToVariant(std::forward<T>(result)));
}
// A handler that returns a status has no result.
inline HRESULT SetResult(VARIANT*, HRESULT status) {
    return status;
}

}  // namespace tarvik
