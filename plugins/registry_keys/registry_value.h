#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "tarvik/status.h"
#include "tarvik/variant.h"

// Values of an open key as script values. The empty name is the key's default value. Failures and names with
// a NUL are as in registry_key.h.
namespace tarvik {

// Returns a text, VT_UI4 for 32 bits, or VT_UI8 for 64. Null if the value is missing, has another type, or
// has a size that does not match its type. A text keeps its NULs, except those at its end, and its references
// to environment variables are not expanded.
Variant ReadValue(HKEY key, const std::wstring& name);

bool HasValue(HKEY key, const std::wstring& name);

// Accepts VT_I4, VT_I8 and VT_BSTR; other types are E_NOTIMPL.
void WriteValue(HKEY key, const std::wstring& name, const VARIANT& value);

void DeleteValue(HKEY key, const std::wstring& name);

// For members that report no failures: what `read` returns, or null if it throws.
template <class Read>
Variant ValueOrNull(Read&& read) {
    Variant value;
    return SUCCEEDED(Guard([&] { value = read(); })) ? std::move(value) : Variant::Null();
}

}  // namespace tarvik
