#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "tarvik/arguments.h"

// The conversions that the contract fixes for members of the built-in plug-ins, beside those of
// tarvik/arguments.h. "Converts" means the system's conversion, VariantChangeType, which also accepts strings
// and booleans.
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

bool FromVariant(const VARIANT& value, CoercedInt& out);
bool FromVariant(const VARIANT& value, AnyInt32& out);
bool FromVariant(const VARIANT& value, StrictInt32& out);
bool FromVariant(const VARIANT& value, Bits32& out);
bool FromVariant(const VARIANT& value, Int64& out);
bool FromVariant(const VARIANT& value, UInt64& out);
bool FromVariant(const VARIANT& value, Number& out);
bool FromVariant(const VARIANT& value, CoercedText& out);  // throws std::bad_alloc
bool FromVariant(const VARIANT& value, AnyValue& out);

// A boolean as the result of a handler: true for S_OK, false for any other status. The call itself succeeds.
struct Outcome {
    HRESULT status;
};

inline Variant ToVariant(Outcome value) {
    return Variant::Bool(value.status == S_OK);
}
inline Variant ToVariant(Number value) {
    return Variant::R8(value.value);
}

}  // namespace tarvik
