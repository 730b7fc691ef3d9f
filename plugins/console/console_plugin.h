#pragma once

#include "host/registry/plugin_base.h"

namespace tarvik {

// `console`: lines for the debugger, and whether script errors are shown.
class CConsolePlugin : public BrowserPlugin<CConsolePlugin> {
  public:
    static std::span<const SmallMember<CConsolePlugin>> Members();

    HRESULT Log(WORD flags, const Call& call);
    HRESULT ShowJsError(WORD flags, const Call& call);

  private:
    Variant showJsError_;  // whatever script put there; only a literal false hides errors
};

}  // namespace tarvik
