#pragma once

#include "host/plugin_registry/plugin_base.h"
#include "plugins/registry_keys/registry_key.h"

namespace tarvik {

// `registry`: keys and values of the system's registry, by paths that begin with the name of a root key. No
// key stays open between calls. Members return false for a failure; queryValue returns null.
class CRegistryPlugin : public TablePlugin<CRegistryPlugin> {
  public:
    static constexpr char kClassName[] = "CRegistryPlugin";
    static std::span<const Member<CRegistryPlugin>> Members();

    Outcome CreateKey(BSTR path);  // succeeds if the key exists
    Outcome DeleteKey(BSTR path);  // with its subkeys
    Outcome SetValue(BSTR path, AnyValue value);
    Outcome DeleteValue(BSTR path);
    Variant QueryValue(BSTR path);
    Outcome IsKeyExist(BSTR path);
    Outcome IsValueExist(BSTR path);

    // The view of the registry on a 64-bit system: `default`, `force32` or `force64`.
    Bstr GetMode();
    HRESULT SetMode(BSTR mode);

  private:
    struct Leaf {
        UniqueKey key;
        std::wstring name;
    };
    Leaf OpenParent(BSTR path, REGSAM access) const;

    REGSAM view_ = 0;
};

}  // namespace tarvik
