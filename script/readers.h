#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "base/bstr.h"
#include "base/com_ptr.h"
#include "base/variant.h"

// How arguments become C++ values, and results become script values. A new kind of argument is a new type
// here.
namespace tarvik {

// One invocation, its arguments seen in script order. Everything is borrowed for the call.
class Call {
  public:
    Call(const DISPPARAMS* parameters, VARIANT* result)
        : reversed_(parameters ? parameters->rgvarg : nullptr, parameters ? parameters->cArgs : 0),
          result_(result) {}

    size_t Count() const { return reversed_.size(); }
    const VARIANT& At(size_t index) const {
        const VARIANT& value = reversed_[reversed_.size() - 1 - index];
        return value.vt == (VT_VARIANT | VT_BYREF) ? *value.pvarVal : value;
    }
    // Null: script wants no value.
    VARIANT* Result() const { return result_; }

  private:
    std::span<const VARIANT> reversed_;
    VARIANT* result_;
};

// An integer by the system's conversion, whatever the script type; a failed conversion is not reported and
// gives 0.
struct LooseInt {
    LONG value = 0;
};

// A text by the system's conversion; a failed conversion is not reported and gives no text.
struct LooseText {
    std::wstring value;
    bool isNull = true;

    const wchar_t* Get() const { return value.c_str(); }
};

// VT_I4, VT_INT, VT_UI4 or VT_UINT; the 32 bits as they stand.
struct ExactInt {
    LONG value = 0;
};

// VT_I4 and nothing else.
struct ConstantInt {
    LONG value = 0;
};

// By the system's conversion, like LooseInt; a value that the kind cannot hold is refused.
struct Int64 {
    LONGLONG value = 0;
};
struct UInt64 {
    ULONGLONG value = 0;
};
struct Number {
    double value = 0;
};
// 32 bits, from anything that converts to a signed or to an unsigned integer of that width.
struct Bits32 {
    ULONG value = 0;
};

// The object in a value: of kind VT_DISPATCH, or VT_UNKNOWN, which plug-ins have when script hands them on.
// Null for every other kind.
ComPtr<IDispatch> ObjectIn(const VARIANT& value);

struct AnyValue {
    const VARIANT* value = nullptr;
};

// Each answers whether the value has the kind. A boolean is true only for the system's true value.
bool Read(const VARIANT& value, bool& out);
bool Read(const VARIANT& value, BSTR& out);               // borrowed; null is kept apart from empty
bool Read(const VARIANT& value, IDispatch*& out);         // borrowed; may be null
bool Read(const VARIANT& value, ComPtr<IDispatch>& out);  // of either kind; may be null
bool Read(const VARIANT& value, LooseInt& out);
bool Read(const VARIANT& value, LooseText& out);
bool Read(const VARIANT& value, ExactInt& out);
bool Read(const VARIANT& value, ConstantInt& out);
bool Read(const VARIANT& value, Int64& out);
bool Read(const VARIANT& value, UInt64& out);
bool Read(const VARIANT& value, Number& out);
bool Read(const VARIANT& value, Bits32& out);
bool Read(const VARIANT& value, AnyValue& out);
template <class T>
bool Read(const VARIANT& value, std::optional<T>& out) {
    return Read(value, out.emplace());
}

// Results of handlers. HRESULT and LONG are one C++ type, so integers have a name of their own.
struct Integer {
    LONG value;
};

// A boolean that is true exactly when the status is S_OK; the call itself succeeds.
struct Outcome {
    HRESULT status;
};

HRESULT Give(VARIANT* slot, Variant&& value);
HRESULT Give(VARIANT* slot, bool value);
HRESULT Give(VARIANT* slot, Integer value);
HRESULT Give(VARIANT* slot, Number value);
HRESULT Give(VARIANT* slot, Outcome value);
HRESULT Give(VARIANT* slot, uint8_t value);   // VT_UI1
HRESULT Give(VARIANT* slot, uint16_t value);  // VT_UI2
HRESULT Give(VARIANT* slot, uint32_t value);  // VT_UI4
HRESULT Give(VARIANT* slot, uint64_t value);  // VT_UI8
HRESULT Give(VARIANT* slot, Bstr&& value);
HRESULT Give(VARIANT* slot, ComPtr<IDispatch>&& value);
inline HRESULT Give(VARIANT*, HRESULT status) {
    return status;
}  // no value, only the status of the call
template <class T>
HRESULT Give(VARIANT* slot, std::optional<T>&& value) {
    return value ? Give(slot, std::move(*value)) : Give(slot, Variant::Null());
}

}  // namespace tarvik
