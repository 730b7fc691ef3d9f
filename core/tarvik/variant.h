#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string_view>

namespace tarvik {

// Owner of a VARIANT. It derives from VARIANT, so it can be passed wherever one is read. It can be moved;
// only Copy copies it, because a copy may allocate and throw.
class Variant : public VARIANT {
  public:
    // VT_EMPTY, with all other bytes 0.
    Variant() noexcept : VARIANT{} {}
    Variant(Variant&& other) noexcept;
    Variant& operator=(Variant&& other) noexcept;
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { Clear(); }

    static Variant Bool(bool value) noexcept;
    static Variant UI1(BYTE value) noexcept;
    static Variant UI2(USHORT value) noexcept;
    static Variant I4(LONG value) noexcept;
    static Variant UI4(ULONG value) noexcept;
    static Variant I8(LONGLONG value) noexcept;
    static Variant UI8(ULONGLONG value) noexcept;
    static Variant R8(double value) noexcept;
    static Variant Text(std::wstring_view value);       // VT_BSTR, a copy; throws std::bad_alloc
    static Variant Object(IDispatch* object) noexcept;  // VT_DISPATCH, a further reference; may be null
    static Variant Unknown(IUnknown* object) noexcept;  // VT_UNKNOWN, a further reference; may be null
    static Variant Pointer(void* address) noexcept;     // VT_PTR, not owned
    static Variant Null() noexcept;                     // VT_NULL

    // A copy that owns everything in it. A by-reference value is dereferenced, because the reference is valid
    // only during its call. Throws StatusError if the system cannot copy the value.
    static Variant Copy(const VARIANT& source);

    // A copy converted by VariantChangeType, which also converts strings and booleans to numbers. VT_EMPTY if
    // the system cannot convert the value.
    static Variant Converted(const VARIANT& source, VARTYPE type) noexcept;

    // Releases the value, which is VT_EMPTY then.
    void Clear() noexcept;

    // For calls that fill an out parameter; releases the old value.
    VARIANT* Receive() noexcept {
        Clear();
        return this;
    }

    // Converts the value in place, as Converted does. False if that fails: the value is then unchanged.
    bool ChangeType(VARTYPE type) noexcept;

    // Moves the value to `slot`, which must hold a valid VARIANT, and releases the old value there. This
    // value is VT_EMPTY then.
    void MoveInto(VARIANT* slot) noexcept;

    bool Is(VARTYPE type) const noexcept { return vt == type; }
};

}  // namespace tarvik
