#pragma once

#include <optional>

#include "host/plugin_registry/plugin_base.h"
#include "plugins/hotkey/hotkey_subclass.h"

namespace tarvik {

// `hotkey`: system-wide hot keys that call functions of the page. Hot keys and plug-in survive a navigation;
// hot keys end when they are cleared or the window is destroyed.
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
