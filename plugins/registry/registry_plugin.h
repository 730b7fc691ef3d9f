#pragma once

#include "host/plugin_registry/plugin_base.h"
#include "plugins/registry_keys/registry_key.h"

namespace tarvik {

// `registry`: keys and values of the system's registry, by paths that begin with the name of a root. Nothing
// stays open between calls. A failure in the work is false, or null where a value is asked for.
class CRegistryPlugin : public TablePlugin<CRegistryPlugin> {
  public:
    static constexpr char kClassName[] = "CRegistryPlugin";
    static std::span<const Member<CRegistryPlugin>> Members();

    Outcome CreateKey(BSTR path);  // also if it is there
    Outcome DeleteKey(BSTR path);  // with all that is below it
    Outcome SetValue(BSTR path, AnyValue value);
    Outcome DeleteValue(BSTR path);
    Variant QueryValue(BSTR path);
    Outcome IsKeyExist(BSTR path);
    Outcome IsValueExist(BSTR path);

    // Which half of the registry of a 64-bit system is meant: `default`, `force32` or `force64`.
    Bstr GetMode();
    HRESULT SetMode(BSTR mode);

  private:
    struct Leaf {
        UniqueKey key;
        std::wstring name;
    };
    Leaf OpenAbove(BSTR path, REGSAM access) const;

    REGSAM view_ = 0;
};

}  // namespace tarvik
