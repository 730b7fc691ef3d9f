#pragma once

#include <windows.h>
#include <oaidl.h>

#include <initializer_list>
#include <span>

#include "tarvik/bstr.h"
#include "tarvik/variant.h"

// Reads, writes and calls script objects, and returns statuses; ScriptObject (tarvik/script_object.h) does
// the same with exceptions and conversions. Call these on the thread of the object, or with an unmarshaled
// interface. Arguments are borrowed for the call. A result slot must be VT_EMPTY before it; the caller owns
// the result. Every call may run script, which may release anything, navigate or close the window.
namespace tarvik {

// The locale of every call into script.
inline constexpr LCID kScriptLocale = LOCALE_USER_DEFAULT;

// Reads a property. For an unknown name, returns the status of the look-up and leaves `value` unchanged.
HRESULT GetScriptProperty(IDispatch* object, const wchar_t* name, VARIANT* value);

// Reads a property; VT_EMPTY after any failure.
Variant ReadScriptProperty(IDispatch* object, const wchar_t* name);

// Writes the property with a known id. Objects, arrays and references are put by reference first, and by
// value if that fails.
HRESULT PutScriptProperty(IDispatch* object, DISPID id, const VARIANT* value);

// Creates a property through IDispatchEx and writes it; E_NOINTERFACE if the object has no IDispatchEx. Use
// it once for a name: a CObject returns no id for a property that exists.
HRESULT SetScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value);

// Writes a property, and creates it if it does not exist.
HRESULT AssignScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value);

// Calls a script function with arguments in the order of script. `result` may be null. E_POINTER for a null
// function.
HRESULT CallScriptFunction(IDispatch* function, std::span<const VARIANT* const> arguments, VARIANT* result);
inline HRESULT CallScriptFunction(IDispatch* function, std::initializer_list<const VARIANT*> arguments = {},
                                  VARIANT* result = nullptr) {
    return CallScriptFunction(function, std::span<const VARIANT* const>(arguments.begin(), arguments.size()),
                              result);
}

// Whether a callback returned the boolean false, which cancels an operation or rejects a step.
bool IsFalse(const VARIANT& value);

// Calls a method by name, with arguments in the order of script. `result` may be null.
HRESULT CallScriptMember(IDispatch* object, const wchar_t* name, std::span<const VARIANT* const> arguments,
                         VARIANT* result);
inline HRESULT CallScriptMember(IDispatch* object, const wchar_t* name,
                                std::initializer_list<const VARIANT*> arguments, VARIANT* result) {
    return CallScriptMember(object, name, std::span(arguments.begin(), arguments.size()), result);
}

}  // namespace tarvik
