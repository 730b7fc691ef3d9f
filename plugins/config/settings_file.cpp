#include "plugins/config/settings_file.h"

#include "base/status.h"
#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kCapacity = 10240;

std::wstring RequireName(std::wstring_view text) {
    if (text.empty()) throw StatusError(E_INVALIDARG);
    return std::wstring(text);
}

// A null `text` deletes the key; a null `key` deletes the section.
void Write(const std::wstring& path, const std::wstring& section, const wchar_t* key, const wchar_t* text) {
    if (!WritePrivateProfileStringW(section.c_str(), key, text, path.c_str()))
        ThrowIfFailed(LastErrorStatus());
}

std::wstring ReadText(const std::wstring& path, const std::wstring& section, const std::wstring& key,
                      const wchar_t* fallback) {
    std::wstring text(kCapacity, L'\0');
    text.resize(GetPrivateProfileStringW(section.c_str(), key.c_str(), fallback, text.data(), kCapacity,
                                         path.c_str()));
    return text;
}

}  // namespace

void SettingsFile::Select(const std::wstring& path) {
    path_ = RequireName(path);
}

void SettingsFile::RequireSelected() const {
    if (path_.empty()) throw StatusError(E_FAIL);
}

void SettingsFile::SetValue(std::wstring_view section, std::wstring_view key, const VARIANT& value) const {
    RequireSelected();
    Variant text = Variant::Copy(value);
    if (!text.ChangeType(VT_BSTR)) throw StatusError(E_INVALIDARG);
    Write(path_, RequireName(section), RequireName(key).c_str(),
          std::wstring(Bstr::View(text.bstrVal)).c_str());
}

// An empty text may be the value or the fallback. A second read with another fallback distinguishes them.
Variant SettingsFile::QueryValue(std::wstring_view section, std::wstring_view key) const {
    RequireSelected();
    const std::wstring sectionName = RequireName(section), keyName = RequireName(key);
    const std::wstring text = ReadText(path_, sectionName, keyName, L"");
    if (!text.empty()) return Variant::Text(text);
    return ReadText(path_, sectionName, keyName, L"?").empty() ? Variant() : Variant::Null();
}

void SettingsFile::DeleteValue(std::wstring_view section, std::wstring_view key) const {
    RequireSelected();
    const std::wstring sectionName = RequireName(section), keyName = RequireName(key);
    if (GetFileAttributesW(path_.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    Write(path_, sectionName, keyName.c_str(), nullptr);
}

void SettingsFile::Clear() const {
    RequireSelected();
    if (!DeleteFileW(path_.c_str())) ThrowIfFailed(LastErrorStatus());
}

void SettingsFile::ClearSection(std::wstring_view section) const {
    RequireSelected();
    Write(path_, RequireName(section), nullptr, nullptr);
}

}  // namespace tarvik
