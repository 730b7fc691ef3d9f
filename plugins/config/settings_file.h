#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

#include "tarvik/variant.h"

namespace tarvik {

// Settings in an INI file, by section and key. Failures are thrown as statuses; without a chosen file all is
// E_FAIL. Texts are handed to the system as they are: what stands behind a line end in one reads as a line of
// its own.
class SettingsFile {
  public:
    void Choose(std::wstring path);  // a full path
    void Leave() { path_.clear(); }

    // Whatever becomes a text by the system's conversion. Makes the file, but no folder.
    void SetValue(std::wstring_view section, std::wstring_view key, const VARIANT& value) const;
    // A text, cut at 10239 characters; null if there is none, and empty for an empty one.
    Variant QueryValue(std::wstring_view section, std::wstring_view key) const;
    // What is not there needs no deleting.
    void DeleteValue(std::wstring_view section, std::wstring_view key) const;

    void Clear() const;  // deletes the file
    void ClearSection(std::wstring_view section) const;

  private:
    void RequireChosen() const;

    std::wstring path_;
};

}  // namespace tarvik
