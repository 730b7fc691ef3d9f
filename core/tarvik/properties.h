#pragma once

#include <windows.h>
#include <oaidl.h>

#include <initializer_list>
#include <span>

#include "tarvik/bstr.h"
#include "tarvik/variant.h"

// Reading, writing and calling script objects from native code. All of it on the object's own thread, or
// through a marshalled reference.
namespace tarvik {

// The locale that every call into script carries.
inline constexpr LCID kScriptLocale = LOCALE_USER_DEFAULT;

// A failing name look-up returns its status and leaves `value` as it was: an absent option.
HRESULT GetScriptProperty(IDispatch* object, const wchar_t* name, VARIANT* value);
// The same as a value; whatever fails, it reads as empty.
Variant ReadScriptProperty(IDispatch* object, const wchar_t* name);

// Objects, unknowns, arrays and references are tried as a put by reference first.
HRESULT PutScriptProperty(IDispatch* object, DISPID id, const VARIANT* value);

// Makes sure of the name through IDispatchEx, then puts. A name that a CObject has already yields no id, so a
// property is set this way once only.
HRESULT SetScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value);

// Puts the property that there is, or makes one.
HRESULT AssignScriptProperty(IDispatch* object, const wchar_t* name, const VARIANT& value);

// Calls a script function; the arguments are given in script order. A null function does nothing: E_POINTER.
HRESULT CallScriptFunction(IDispatch* function, std::span<const VARIANT* const> arguments, VARIANT* result);
inline HRESULT CallScriptFunction(IDispatch* function, std::initializer_list<const VARIANT*> arguments = {},
                                  VARIANT* result = nullptr) {
    return CallScriptFunction(function, std::span<const VARIANT* const>(arguments.begin(), arguments.size()),
                              result);
}

// Whether script answered a real false, by which it ends a run or refuses a step.
bool IsFalse(const VARIANT& answer);

// Script sees function(value, context). Both are copied for the call.
HRESULT CallWithContext(IDispatch* function, const VARIANT& value, const VARIANT& context, VARIANT* result);

// Calls a member by name; the arguments are given in script order.
HRESULT CallScriptMember(IDispatch* object, const wchar_t* name, std::span<const VARIANT* const> arguments,
                         VARIANT* result);
inline HRESULT CallScriptMember(IDispatch* object, const wchar_t* name,
                                std::initializer_list<const VARIANT*> arguments, VARIANT* result) {
    return CallScriptMember(object, name, std::span(arguments.begin(), arguments.size()), result);
}

// Clears the destination, moves the value there and leaves the source empty.
HRESULT MoveValueOut(VARIANT* value, VARIANT* destination);

// A narrow literal, in the system's code page, as a BSTR that the caller frees; null in, null out.
BSTR NarrowToBstr(const char* text);

}  // namespace tarvik
