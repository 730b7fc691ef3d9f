#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

// The bytes of a resource, which live as long as the module; empty if there is none.
inline std::string_view ResourceBytes(HMODULE module, LPCWSTR name, LPCWSTR type) {
    const HRSRC resource = FindResourceW(module, name, type);
    const HGLOBAL loaded = resource ? LoadResource(module, resource) : nullptr;
    if (!loaded) return {};
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(module, resource)};
}

}  // namespace tarvik
