#include "plugins/config/settings_key.h"

#include "tarvik/status.h"
#include "plugins/registry_keys/registry_value.h"

namespace tarvik {

namespace {

constexpr wchar_t kAbove[] = L"Software";

KeyPath Split(std::wstring_view name) {
    if (name.empty() || name.front() == L'\\' || name.back() == L'\\') throw StatusError(E_INVALIDARG);
    return SplitKeyPath(name);
}

}  // namespace

// Backslashes alone would choose, and clear, the settings of all programs.
void SettingsKey::Choose(std::wstring name) {
    if (name.find_first_not_of(L'\\') == std::wstring::npos || name.find(L'\0') != std::wstring::npos)
        throw StatusError(E_INVALIDARG);
    name_ = std::move(name);
}

void SettingsKey::RequireChosen() const {
    if (!IsChosen()) throw StatusError(E_FAIL);
}

std::wstring SettingsKey::Path() const {
    return std::wstring(kAbove) + L'\\' + name_;
}

HKEY SettingsKey::Store() {
    RequireChosen();
    if (!open_) open_ = FindKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    return open_.Get();
}

// The store's key is made before the name is looked at; that is intended.
void SettingsKey::SetValue(std::wstring_view name, const VARIANT& value) {
    RequireChosen();
    if (!open_) open_ = MakeKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    const KeyPath at = Split(name);
    if (at.key.empty()) return WriteValue(open_.Get(), at.leaf, value);
    WriteValue(MakeKey(open_.Get(), at.key, kWriteKey).Get(), at.leaf, value);
}

Variant SettingsKey::QueryValue(std::wstring_view name) {
    const HKEY store = Store();
    if (!store) return Variant::Null();
    const KeyPath at = Split(name);
    if (at.key.empty()) return ReadValue(store, at.leaf);
    const UniqueKey key = FindKey(store, at.key, kReadKey);
    return key ? ReadValue(key.Get(), at.leaf) : Variant::Null();
}

void SettingsKey::DeleteValue(std::wstring_view name) {
    const HKEY store = Store();
    if (!store) return;
    const KeyPath at = Split(name);
    const UniqueKey below = at.key.empty() ? UniqueKey() : FindKey(store, at.key, kWriteKey);
    const HKEY key = at.key.empty() ? store : below.Get();
    if (key) (void)Guard([&] { tarvik::DeleteValue(key, at.leaf); });
}

void SettingsKey::Clear() {
    RequireChosen();
    open_.Reset();
    DeleteKeyTree(OpenKey(HKEY_CURRENT_USER, kAbove, kWriteKey).Get(), name_, 0);
}

void SettingsKey::ClearKey(std::wstring_view name) {
    RequireChosen();
    const KeyPath at = Split(name);
    open_.Reset();
    const UniqueKey store = OpenKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    DeleteKeyTree(OpenKey(store.Get(), at.key, kWriteKey).Get(), at.leaf, 0);
}

}  // namespace tarvik
