#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

#include "tarvik/variant.h"
#include "plugins/registry_keys/registry_key.h"

namespace tarvik {

// Settings below HKEY_CURRENT_USER\Software\NAME. A setting's name is that of a value, with the names of keys
// before it where it has backslashes. Failures are thrown as statuses; without a chosen name all is E_FAIL.
//
// The key is opened when it is first needed and kept until it is cleared, and that is intended: values go to
// it whatever name is chosen meanwhile, and it takes none once somebody else has deleted it.
class SettingsKey {
  public:
    void Choose(std::wstring name);
    void Leave() { name_.clear(); }
    bool IsChosen() const { return !name_.empty(); }

    // Makes the keys that are missing, also for a value that it then refuses.
    void SetValue(std::wstring_view name, const VARIANT& value);
    // Null if there is none.
    Variant QueryValue(std::wstring_view name);
    // What is not there needs no deleting.
    void DeleteValue(std::wstring_view name);

    // Deletes all of the chosen key, or a key below it with all it has, and closes the open one.
    void Clear();
    void ClearKey(std::wstring_view name);

  private:
    void RequireChosen() const;
    std::wstring Path() const;
    // The open key; null if there is none.
    HKEY Store();

    std::wstring name_;
    UniqueKey open_;
};

}  // namespace tarvik
