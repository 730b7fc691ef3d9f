#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string_view>

namespace tarvik {

// Owner of a script value. It is a VARIANT, so it is passed where one is read; copies are asked for by name,
// because they allocate and may throw.
class Variant : public VARIANT {
  public:
    // All of it, also what a kind does not use: some read the whole of a value, whatever its kind.
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
    static Variant Text(std::wstring_view value);       // throws when out of memory
    static Variant Object(IDispatch* object) noexcept;  // takes a reference; may be null
    static Variant Unknown(IUnknown* object) noexcept;  // takes a reference; may be null
    static Variant Pointer(void* address) noexcept;     // VT_PTR, not owned
    static Variant Null() noexcept;

    // A full copy; a value by reference is followed, because the reference ends with its call. A failure
    // throws the status; the source stays as it was.
    static Variant Copy(const VARIANT& source);

    void Clear() noexcept;

    // For calls that fill an out parameter; what was held is cleared first.
    VARIANT* Receive() noexcept {
        Clear();
        return this;
    }

    // Converts in place, with the system's rules. A failure leaves the value as it was.
    bool ChangeType(VARTYPE kind) noexcept;

    // Moves the value into a slot that a caller gave, clearing what is there.
    void MoveInto(VARIANT* slot) noexcept;

    bool Is(VARTYPE kind) const noexcept { return vt == kind; }
};

}  // namespace tarvik
