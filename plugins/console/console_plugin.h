#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `console`: lines for the debugger, and whether script errors are shown.
class CConsolePlugin : public BrowserPlugin<CConsolePlugin> {
  public:
    static std::span<const Member<CConsolePlugin>> Members();

    HRESULT Log(const Call& call);
    Variant GetLog() const { return Variant(); }  // a read writes nothing
    Variant GetShowJsError() const { return Variant::Copy(showJsError_); }
    HRESULT SetShowJsError(const Call& call);

  private:
    Variant showJsError_;  // whatever script put there; only a literal false hides errors
};

}  // namespace tarvik
