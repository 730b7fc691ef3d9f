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

// Keys of the system's registry. A failure is thrown as a status. A name that holds a zero is E_INVALIDARG,
// because the system would take what stands before the zero for the name. An empty path is the parent itself.
// `view` is 0, KEY_WOW64_32KEY or KEY_WOW64_64KEY, and `access` may have such a bit, too.

inline constexpr REGSAM kReadKey = KEY_READ;
inline constexpr REGSAM kWriteKey = KEY_READ | KEY_WRITE;

UniqueKey OpenKey(HKEY parent, const std::wstring& path, REGSAM access);
// Empty if there is no such key, or the parent has been deleted.
UniqueKey FindKey(HKEY parent, const std::wstring& path, REGSAM access);
// Opens the key that is there, or makes it with those above it.
UniqueKey MakeKey(HKEY parent, const std::wstring& path, REGSAM access);
// Deletes a key with all that is below it, and stops where something cannot be deleted; what is gone by then
// stays gone. An empty name is E_INVALIDARG: nobody means to delete the parent.
void DeleteKeyTree(HKEY parent, const std::wstring& name, REGSAM view);

// A path, split at its last backslash. Without one, all of it is the leaf.
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
