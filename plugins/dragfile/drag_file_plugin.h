#pragma once

#include <map>
#include <string>

#include "host/registry/plugin_base.h"

namespace tarvik {

// `dragfile`: what the page does with files that are dragged onto its elements. The site asks for the binding
// of an element and calls its function. Bindings stay when the page changes.
class CDragFilePlugin : public BrowserPlugin<CDragFilePlugin> {
  public:
    static std::span<const SmallMember<CDragFilePlugin>> Members();

    // bind(id, function[, context]) replaces the binding of an id; anything but a function takes it away.
    HRESULT Bind(WORD flags, const Call& call);
    // get(id) gives an object with `callback` and `context`, or no value.
    HRESULT Get(WORD flags, const Call& call);

  private:
    struct Binding {
        ComPtr<IDispatch> function;
        Variant context;
    };
    std::map<std::wstring, Binding, std::less<>> bindings_;  // by the id of the element, as it is written
};

}  // namespace tarvik
