#include "plugins/config/settings_key.h"

#include "plugins/registry_keys/registry_value.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr wchar_t kParentKey[] = L"Software";

KeyPath SplitName(std::wstring_view name) {
    if (name.empty() || name.front() == L'\\' || name.back() == L'\\') throw StatusError(E_INVALIDARG);
    return SplitKeyPath(name);
}

}  // namespace

// A name of backslashes alone would select, and clear, the settings of all programs.
void SettingsKey::Select(std::wstring name) {
    if (name.find_first_not_of(L'\\') == std::wstring::npos || name.find(L'\0') != std::wstring::npos)
        throw StatusError(E_INVALIDARG);
    name_ = std::move(name);
}

void SettingsKey::RequireSelected() const {
    if (!IsSelected()) throw StatusError(E_FAIL);
}

std::wstring SettingsKey::Path() const {
    return std::wstring(kParentKey) + L'\\' + name_;
}

HKEY SettingsKey::OpenStore() {
    RequireSelected();
    if (!open_) open_ = TryOpenKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    return open_.Get();
}

// By design this creates the store's key even if the name is then rejected.
void SettingsKey::SetValue(std::wstring_view name, const VARIANT& value) {
    RequireSelected();
    if (!open_) open_ = OpenOrCreateKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    const KeyPath split = SplitName(name);
    if (split.key.empty()) return WriteValue(open_.Get(), split.leaf, value);
    WriteValue(OpenOrCreateKey(open_.Get(), split.key, kWriteKey).Get(), split.leaf, value);
}

Variant SettingsKey::QueryValue(std::wstring_view name) {
    const HKEY store = OpenStore();
    if (!store) return Variant::Null();
    const KeyPath split = SplitName(name);
    if (split.key.empty()) return ReadValue(store, split.leaf);
    const UniqueKey key = TryOpenKey(store, split.key, kReadKey);
    return key ? ReadValue(key.Get(), split.leaf) : Variant::Null();
}

void SettingsKey::DeleteValue(std::wstring_view name) {
    const HKEY store = OpenStore();
    if (!store) return;
    const KeyPath split = SplitName(name);
    const UniqueKey below = split.key.empty() ? UniqueKey() : TryOpenKey(store, split.key, kWriteKey);
    const HKEY key = split.key.empty() ? store : below.Get();
    if (key) (void)Guard([&] { tarvik::DeleteValue(key, split.leaf); });
}

void SettingsKey::Clear() {
    RequireSelected();
    open_.Reset();
    DeleteKeyTree(OpenKey(HKEY_CURRENT_USER, kParentKey, kWriteKey).Get(), name_, 0);
}

void SettingsKey::ClearKey(std::wstring_view name) {
    RequireSelected();
    const KeyPath split = SplitName(name);
    open_.Reset();
    const UniqueKey store = OpenKey(HKEY_CURRENT_USER, Path(), kWriteKey);
    DeleteKeyTree(OpenKey(store.Get(), split.key, kWriteKey).Get(), split.leaf, 0);
}

}  // namespace tarvik
