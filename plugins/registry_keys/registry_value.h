#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "tarvik/status.h"
#include "tarvik/variant.h"

// Values of an open key, as script values. The empty name is the key's default value. Failures and names that
// hold a zero are as in registry_key.h.
namespace tarvik {

// A text, VT_UI4 for 32 bits, VT_UI8 for 64. Null if there is no such value, or it is of another kind, or its
// bytes are not those of its kind. References to the environment stay as they are; a text's zeros are part of
// it, but for those at its end.
Variant ReadValue(HKEY key, const std::wstring& name);

bool HasValue(HKEY key, const std::wstring& name);

// Takes VT_I4, VT_I8 and texts; other kinds are E_NOTIMPL.
void WriteValue(HKEY key, const std::wstring& name, const VARIANT& value);

void DeleteValue(HKEY key, const std::wstring& name);

// For members that tell no failure: what the work finds, or null where it fails.
template <class Find>
Variant FoundOrNull(Find&& find) {
    Variant found;
    return SUCCEEDED(Guard([&] { found = find(); })) ? std::move(found) : Variant::Null();
}

}  // namespace tarvik
