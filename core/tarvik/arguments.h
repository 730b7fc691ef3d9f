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

// The argument converters: FromVariant converts a script value to a C++ value, ToVariant converts back.
// Member tables and ScriptObject use them. To pass a type of your own, write an overload in the namespace of
// the type.
//
// JavaScript passes a whole number that fits 32 bits as VT_I4, and any other number as VT_R8.
namespace tarvik {

// Each returns false for a value of the wrong type, and leaves `out` undefined then. Borrowed results are
// valid as long as `value`. Copies throw std::bad_alloc or StatusError when out of memory.
bool FromVariant(const VARIANT& value, bool& out);          // VT_BOOL; only VARIANT_TRUE is true
bool FromVariant(const VARIANT& value, int& out);           // a number of any type, if whole and in range
bool FromVariant(const VARIANT& value, double& out);        // a number of any type
bool FromVariant(const VARIANT& value, std::wstring& out);  // VT_BSTR; null becomes an empty string
bool FromVariant(const VARIANT& value, Variant& out);       // any type; a copy
bool FromVariant(const VARIANT& value, BSTR& out);          // VT_BSTR; borrowed; may be null
bool FromVariant(const VARIANT& value, IDispatch*& out);    // VT_DISPATCH; borrowed; may be null
bool FromVariant(const VARIANT& value, ComPtr<IDispatch>& out);  // VT_DISPATCH or VT_UNKNOWN; may be null
template <class T>
bool FromVariant(const VARIANT& value, std::optional<T>& out) {  // as T; empty is an omitted argument
    return FromVariant(value, out.emplace());
}

// The object in a VT_DISPATCH, or in a VT_UNKNOWN, as which engines pass plug-ins. Null for any other type,
// and for an object without IDispatch.
ComPtr<IDispatch> ObjectIn(const VARIANT& value);

// Strings are copied, and objects get a further reference. Throw std::bad_alloc when out of memory.
inline Variant ToVariant(Variant&& value) {
    return std::move(value);
}
inline Variant ToVariant(const VARIANT& value) {  // a copy; throws StatusError
    return Variant::Copy(value);
}
inline Variant ToVariant(std::nullptr_t) {
    return Variant::Null();
}
inline Variant ToVariant(bool value) {
    return Variant::Bool(value);
}
inline Variant ToVariant(double value) {
    return Variant::R8(value);
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
// VT_UI8, with which the old engine cannot calculate. Return a double instead: it is a number everywhere.
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
inline Variant ToVariant(const wchar_t* value) {  // not null
    return Variant::Text(value);
}
inline Variant ToVariant(IDispatch* value) {  // VT_DISPATCH; may be null
    return Variant::Object(value);
}
inline Variant ToVariant(const ComPtr<IDispatch>& value) {
    return Variant::Object(value.Get());
}
template <class T>
Variant ToVariant(std::optional<T> value) {  // VT_NULL if empty
    return value ? ToVariant(std::move(*value)) : Variant::Null();
}

// Stores a result in the slot of a call (Call::Result), which may be null. Returns S_OK. For an HRESULT it
// stores nothing and returns the status: so a handler that returns HRESULT, or LONG, which is the same type,
// has no result.
HRESULT SetResult(VARIANT* slot, Variant&& result);
template <class T>
HRESULT SetResult(VARIANT* slot, T&& result) {
    return SetResult(slot, ToVariant(std::forward<T>(result)));
}
inline HRESULT SetResult(VARIANT*, HRESULT status) {
    return status;
}

}  // namespace tarvik
