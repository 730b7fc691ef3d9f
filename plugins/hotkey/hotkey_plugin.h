#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/hotkey/hotkey_subclass.h"

namespace tarvik {

// `hotkey`: keys that call the page wherever the user works. They stay when the page changes, until they are
// cleared or the window goes; so does the plug-in.
class CHotkeyPlugin : public TablePlugin<CHotkeyPlugin> {
  public:
    static constexpr char kClassName[] = "CHotkeyPlugin";
    static std::span<const Member<CHotkeyPlugin>> Members();

    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    bool Set(BSTR keys, IDispatch* function, std::optional<AnyValue> context);
    bool Clear(BSTR keys);

  private:
    CHotkeySubclassWindow window_;
};

}  // namespace tarvik
