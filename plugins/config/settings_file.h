#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

#include "tarvik/variant.h"

namespace tarvik {

// Settings in an INI file, by section and key. Failures are thrown; every member throws E_FAIL while no file
// is selected. Texts are written verbatim, so a line break in a text starts a new line of the file.
class SettingsFile {
  public:
    void Select(const std::wstring& path);  // a full path
    void Deselect() { path_.clear(); }

    // Accepts any value that the system converts to a text. Creates the file, but no folder.
    void SetValue(std::wstring_view section, std::wstring_view key, const VARIANT& value) const;
    // A text, cut at 10239 characters; VT_EMPTY for an empty text; null if the key is missing.
    Variant QueryValue(std::wstring_view section, std::wstring_view key) const;
    // Succeeds if the key is missing.
    void DeleteValue(std::wstring_view section, std::wstring_view key) const;

    void Clear() const;  // deletes the file
    void ClearSection(std::wstring_view section) const;

  private:
    void RequireSelected() const;

    std::wstring path_;
};

}  // namespace tarvik
