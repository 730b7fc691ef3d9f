#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

namespace tarvik {

// Native values written as JavaScript, for what is evaluated in a page.

// A string literal. Every UTF-16 code unit comes through as it is, unpaired surrogates and zeros included.
std::string ScriptText(std::wstring_view text);

std::string ScriptNumber(double value);

// How an object is written, which depends on who owns it. Never called with null.
using ObjectWriter = std::string (*)(void* context, IUnknown* object);

// Any value that automation knows. Arrays of one dimension become arrays; what script has no kind for, like
// arrays of more dimensions, becomes undefined.
std::string ScriptValue(const VARIANT& value, ObjectWriter writeObject, void* context);

}  // namespace tarvik
