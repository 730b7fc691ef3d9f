#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

#include "plugins/registry_keys/registry_key.h"
#include "tarvik/variant.h"

namespace tarvik {

// Settings below HKEY_CURRENT_USER\Software\NAME. A setting is a value; backslashes in its name separate the
// keys above it. Failures are thrown; every member throws E_FAIL while no name is selected.
//
// By design the key stays open from its first use until it is cleared: values are written there even after
// another name has been selected, and writing fails after another program has deleted the key.
class SettingsKey {
  public:
    void Select(std::wstring name);
    void Deselect() { name_.clear(); }
    bool IsSelected() const { return !name_.empty(); }

    // Creates missing keys, even if it then rejects the value.
    void SetValue(std::wstring_view name, const VARIANT& value);
    // Null if the value is missing.
    Variant QueryValue(std::wstring_view name);
    // Succeeds if the value is missing.
    void DeleteValue(std::wstring_view name);

    // Delete the selected key or one below it, with subkeys, and close the open key.
    void Clear();
    void ClearKey(std::wstring_view name);

  private:
    void RequireSelected() const;
    std::wstring Path() const;
    // Opens the selected key if none is open; null if it is missing.
    HKEY OpenStore();

    std::wstring name_;
    UniqueKey open_;
};

}  // namespace tarvik
