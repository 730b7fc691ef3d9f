#pragma once

#include "host/registry/plugin_base.h"

namespace tarvik {

// `hash`: each member gives a new, empty hash object. Arguments do not matter.
class CHashPlugin : public SmallPlugin<CHashPlugin, SameCharacters> {
  public:
    static std::span<const SmallMember<CHashPlugin>> Members();

    template <class Hash>
    HRESULT Make(WORD flags, const Call& call);
};

}  // namespace tarvik
