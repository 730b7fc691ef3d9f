#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `hash`: each member creates a hash object. Arguments are ignored.
class CHashPlugin : public SmallPlugin<CHashPlugin, SmallRules> {
  public:
    static std::span<const Member<CHashPlugin>> Members();

    template <class Hash>
    HRESULT Make(const Call& call);
};

}  // namespace tarvik
