#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "tarvik/owners.h"

namespace tarvik {

namespace detail {

struct KeyTraits : PointerTraits<HKEY> {
    static void Close(HKEY value) noexcept { RegCloseKey(value); }
};

}  // namespace detail

using UniqueKey = Owner<detail::KeyTraits>;

// Keys of the system's registry. Failures are thrown. A name that contains a NUL is E_INVALIDARG, because the
// system would cut it there. An empty path is the parent itself. `view` is 0, KEY_WOW64_32KEY or
// KEY_WOW64_64KEY; `access` may contain such a bit, too.

inline constexpr REGSAM kReadKey = KEY_READ;
inline constexpr REGSAM kWriteKey = KEY_READ | KEY_WRITE;

UniqueKey OpenKey(HKEY parent, const std::wstring& path, REGSAM access);
// Returns an empty owner if the key is missing or the parent has been deleted.
UniqueKey TryOpenKey(HKEY parent, const std::wstring& path, REGSAM access);
// Creates missing parents, too.
UniqueKey OpenOrCreateKey(HKEY parent, const std::wstring& path, REGSAM access);
// Deletes a key with its subkeys, and stops at the first failure without undoing anything. An empty name is
// E_INVALIDARG: it would delete the parent.
void DeleteKeyTree(HKEY parent, const std::wstring& name, REGSAM view);

// A path split at its last backslash. Without a backslash it is all leaf.
struct KeyPath {
    std::wstring key;
    std::wstring leaf;
};
KeyPath SplitKeyPath(std::wstring_view path);

namespace detail {

void ThrowIfError(LSTATUS error);
const wchar_t* CheckedName(const std::wstring& name);

}  // namespace detail

}  // namespace tarvik
