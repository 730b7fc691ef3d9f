#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `hash`: each member gives a new, empty hash object. Arguments do not matter.
class CHashPlugin : public SmallPlugin<CHashPlugin, SmallRules> {
  public:
    static std::span<const Member<CHashPlugin>> Members();

    template <class Hash>
    HRESULT Make(const Call& call);
};

}  // namespace tarvik
