#include "script/value_operations.h"

#include "tarvik/bstr.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"
#include "tarvik/variant.h"

namespace tarvik {

HRESULT CallWithContext(IDispatch* function, const VARIANT& value, const VARIANT& context, VARIANT* result) {
    const Variant first = Variant::Copy(value);
    const Variant second = Variant::Copy(context);
    return CallScriptFunction(function, {&first, &second}, result);
}

HRESULT MoveValueOut(VARIANT* value, VARIANT* destination) {
    if (!destination) return E_POINTER;
    Variant moved;
    static_cast<VARIANT&>(moved) = *value;
    value->vt = VT_EMPTY;
    moved.MoveInto(destination);
    return S_OK;
}

BSTR NarrowToBstr(const char* text) {
    if (!text) return nullptr;
    return Bstr(Widen(text, CP_ACP)).Detach();
}

}  // namespace tarvik
