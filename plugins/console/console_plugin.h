#pragma once

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `console`: writes lines to the debugger and controls whether script errors are shown.
class CConsolePlugin : public BrowserPlugin<CConsolePlugin> {
  public:
    static std::span<const Member<CConsolePlugin>> Members();

    HRESULT Log(const Call& call);
    Variant GetLog() const { return Variant(); }  // reading `log` writes nothing
    Variant GetShowJsError() const { return Variant::Copy(showJsError_); }
    HRESULT SetShowJsError(const Call& call);

  private:
    Variant showJsError_;  // any value; only a boolean false hides errors
};

}  // namespace tarvik
