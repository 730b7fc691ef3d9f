#pragma once

#include <windows.h>
#include <oaidl.h>

#include <initializer_list>
#include <span>

#include "tarvik/bstr.h"
#include "tarvik/variant.h"

// The operations of ScriptObject (tarvik/script_object.h) on an IDispatch, with statuses instead of
// exceptions and without conversions. Prefer ScriptObject; these are for code that handles each status.
//
// Call these on the thread of the object, or with an unmarshaled interface. `object` and `name` may be null,
// which gives E_INVALIDARG. Arguments are borrowed for the call. A result slot must be VT_EMPTY before it;
// the caller owns the result. Every call may run script, which may release anything, navigate or close the
// window.
namespace tarvik {

// The locale of every call into script.
inline constexpr LCID kScriptLocale = LOCALE_USER_DEFAULT;

// Finds the id of a member. `object` and `id` must not be null.
HRESULT FindScriptMember(IDispatch* object, const wchar_t* name, DISPID* id);

// Reads a property. For an unknown name, returns the status of the look-up and leaves `value` unchanged.
// E_POINTER for a null `value`.
HRESULT GetScriptProperty(IDispatch* object, const wchar_t* name, VARIANT* value);

// Reads a property; VT_EMPTY after any failure.
Variant ReadScriptProperty(IDispatch* object, const wchar_t* name);

// Writes the property with a known id. An object, SAFEARRAY or reference is put by reference, and by value if
// that fails. E_POINTER for a null `value`.
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

// Calls a method by name, with arguments in the order of script. `result` may be null.
HRESULT CallScriptMember(IDispatch* object, const wchar_t* name, std::span<const VARIANT* const> arguments,
                         VARIANT* result);
inline HRESULT CallScriptMember(IDispatch* object, const wchar_t* name,
                                std::initializer_list<const VARIANT*> arguments, VARIANT* result) {
    return CallScriptMember(object, name, std::span(arguments.begin(), arguments.size()), result);
}

// Whether a value is the boolean false, which a callback returns to cancel an operation or reject a step.
bool IsFalse(const VARIANT& value);

}  // namespace tarvik
