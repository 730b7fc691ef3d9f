#include "plugins/config/settings_file.h"

#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kRoom = 10240;

std::wstring Name(std::wstring_view text) {
    if (text.empty()) throw StatusError(E_INVALIDARG);
    return std::wstring(text);
}

// No key stands for the whole section, no text for none.
void Write(const std::wstring& path, const std::wstring& section, const wchar_t* key, const wchar_t* text) {
    if (!WritePrivateProfileStringW(section.c_str(), key, text, path.c_str()))
        ThrowIfFailed(LastErrorStatus());
}

std::wstring ReadText(const std::wstring& path, const std::wstring& section, const std::wstring& key,
                      const wchar_t* otherwise) {
    std::wstring text(kRoom, L'\0');
    text.resize(
        GetPrivateProfileStringW(section.c_str(), key.c_str(), otherwise, text.data(), kRoom, path.c_str()));
    return text;
}

}  // namespace

void SettingsFile::Choose(std::wstring path) {
    path_ = Name(path);
}

void SettingsFile::RequireChosen() const {
    if (path_.empty()) throw StatusError(E_FAIL);
}

void SettingsFile::SetValue(std::wstring_view section, std::wstring_view key, const VARIANT& value) const {
    RequireChosen();
    Variant text = Variant::Copy(value);
    if (!text.ChangeType(VT_BSTR)) throw StatusError(E_INVALIDARG);
    Write(path_, Name(section), Name(key).c_str(), std::wstring(Bstr::View(text.bstrVal)).c_str());
}

// An empty answer is either what stands there or the default. With another default the two differ.
Variant SettingsFile::QueryValue(std::wstring_view section, std::wstring_view key) const {
    RequireChosen();
    const std::wstring inSection = Name(section), ofKey = Name(key);
    const std::wstring text = ReadText(path_, inSection, ofKey, L"");
    if (!text.empty()) return Variant::Text(text);
    return ReadText(path_, inSection, ofKey, L"?").empty() ? Variant() : Variant::Null();
}

void SettingsFile::DeleteValue(std::wstring_view section, std::wstring_view key) const {
    RequireChosen();
    const std::wstring inSection = Name(section), ofKey = Name(key);
    if (GetFileAttributesW(path_.c_str()) == INVALID_FILE_ATTRIBUTES) return;
    Write(path_, inSection, ofKey.c_str(), nullptr);
}

void SettingsFile::Clear() const {
    RequireChosen();
    if (!DeleteFileW(path_.c_str())) ThrowIfFailed(LastErrorStatus());
}

void SettingsFile::ClearSection(std::wstring_view section) const {
    RequireChosen();
    Write(path_, Name(section), nullptr, nullptr);
}

}  // namespace tarvik
