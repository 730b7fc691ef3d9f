#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/config/settings_file.h"
#include "plugins/config/settings_key.h"

namespace tarvik {

// `config`: an application's settings, in the registry or in an INI file, whichever `init` selected last.
// Each member has one form for either store, selected by the number of arguments; the form for the other
// store fails. Members return false for a failure; queryValue returns null.
class CConfigPlugin : public TablePlugin<CConfigPlugin> {
  public:
    static constexpr char kClassName[] = "CConfigPlugin";
    static std::span<const Member<CConfigPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    Outcome Init(BSTR text, std::optional<bool> isPath);
    Outcome Clear(std::optional<AnyValue> name);
    Outcome SetKeyValue(BSTR name, AnyValue value);
    Outcome SetFileValue(BSTR section, BSTR key, AnyValue value);
    Variant QueryKeyValue(BSTR name);
    Variant QueryFileValue(BSTR section, BSTR key);
    Outcome DeleteKeyValue(BSTR name);
    Outcome DeleteFileValue(BSTR section, BSTR key);

  private:
    std::wstring FullPathOf(BSTR path) const;

    ComPtr<TVK::ICore> core_;
    SettingsKey key_;
    SettingsFile file_;
};

}  // namespace tarvik
