#pragma once

#include <windows.h>
#include <oaidl.h>

// Operations on values that the host has beside those of tarvik/properties.h.
namespace tarvik {

// Calls function(value, context) with copies of both values. Throws StatusError if a value cannot be copied.
HRESULT CallWithContext(IDispatch* function, const VARIANT& value, const VARIANT& context, VARIANT* result);

// Moves a value to `destination`, which is cleared first. The source becomes VT_EMPTY. E_POINTER for a null
// destination.
HRESULT MoveValueOut(VARIANT* value, VARIANT* destination);

// Converts a string in the system's code page to a BSTR that the caller frees; null for null. Throws
// std::bad_alloc.
BSTR NarrowToBstr(const char* text);

}  // namespace tarvik
