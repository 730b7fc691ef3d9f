#include "tarvik/variant.h"

#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

template <class Fill>
Variant Make(VARTYPE type, Fill fill) noexcept {
    Variant made;
    made.vt = type;
    fill(made);
    return made;
}

}  // namespace

Variant::Variant(Variant&& other) noexcept : VARIANT(other) {
    other.vt = VT_EMPTY;
}

Variant& Variant::operator=(Variant&& other) noexcept {
    if (this != &other) {
        // The old value is released last: that may run code that reads this one.
        Variant old(std::move(*this));
        static_cast<VARIANT&>(*this) = other;
        other.vt = VT_EMPTY;
    }
    return *this;
}

void Variant::Clear() noexcept {
    // VT_EMPTY first: releasing the old value may run code that reads this one.
    VARIANT old = *this;
    vt = VT_EMPTY;
    // VariantClear rejects VT_PTR; the pointer is not owned.
    if (old.vt != VT_PTR) VariantClear(&old);
}

Variant Variant::Bool(bool value) noexcept {
    return Make(VT_BOOL, [&](Variant& v) { v.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE; });
}
Variant Variant::UI1(BYTE value) noexcept {
    return Make(VT_UI1, [&](Variant& v) { v.bVal = value; });
}
Variant Variant::UI2(USHORT value) noexcept {
    return Make(VT_UI2, [&](Variant& v) { v.uiVal = value; });
}
Variant Variant::I4(LONG value) noexcept {
    return Make(VT_I4, [&](Variant& v) { v.lVal = value; });
}
Variant Variant::UI4(ULONG value) noexcept {
    return Make(VT_UI4, [&](Variant& v) { v.ulVal = value; });
}
Variant Variant::I8(LONGLONG value) noexcept {
    return Make(VT_I8, [&](Variant& v) { v.llVal = value; });
}
Variant Variant::UI8(ULONGLONG value) noexcept {
    return Make(VT_UI8, [&](Variant& v) { v.ullVal = value; });
}
Variant Variant::R8(double value) noexcept {
    return Make(VT_R8, [&](Variant& v) { v.dblVal = value; });
}
Variant Variant::Text(std::wstring_view value) {
    Bstr text(value);
    return Make(VT_BSTR, [&](Variant& v) { v.bstrVal = text.Detach(); });
}
Variant Variant::Object(IDispatch* object) noexcept {
    if (object) object->AddRef();
    return Make(VT_DISPATCH, [&](Variant& v) { v.pdispVal = object; });
}
Variant Variant::Unknown(IUnknown* object) noexcept {
    if (object) object->AddRef();
    return Make(VT_UNKNOWN, [&](Variant& v) { v.punkVal = object; });
}
Variant Variant::Pointer(void* address) noexcept {
    return Make(VT_PTR, [&](Variant& v) { v.byref = address; });
}
Variant Variant::Null() noexcept {
    return Make(VT_NULL, [](Variant&) {});
}

Variant Variant::Copy(const VARIANT& source) {
    Variant copy;
    if (source.vt == VT_PTR) {
        static_cast<VARIANT&>(copy) = source;
    } else {
        ThrowIfFailed(VariantCopyInd(&copy, const_cast<VARIANT*>(&source)));
    }
    return copy;
}

Variant Variant::Converted(const VARIANT& source, VARTYPE type) noexcept {
    Variant converted;
    VariantChangeType(&converted, const_cast<VARIANT*>(&source), 0, type);
    return converted;
}

bool Variant::ChangeType(VARTYPE type) noexcept {
    return vt == type || SUCCEEDED(VariantChangeType(this, this, 0, type));
}

void Variant::MoveInto(VARIANT* slot) noexcept {
    Variant old;
    static_cast<VARIANT&>(old) = *slot;
    *slot = *this;
    vt = VT_EMPTY;
}

}  // namespace tarvik
