#pragma once

#include <map>
#include <string>
#include <utility>

#include "atl/window.h"
#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `dragfile`: what the page does with files that are dragged onto its elements. The site asks for the binding
// of an element and calls its function. Bindings stay when the page changes.
class CDragFilePlugin : public BrowserPlugin<CDragFilePlugin> {
  public:
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    static std::span<const Member<CDragFilePlugin>> Members();

    // bind(id, function[, context]) replaces the binding of an id; anything but a function takes it away.
    HRESULT Bind(const Call& call);
    // get(id) gives an object with `callback` and `context`, or no value.
    HRESULT Get(const Call& call);

  private:
    struct Binding {
        ComPtr<IDispatch> function;
        Variant context;
    };
    // They go with the window, and without one nothing is kept: what script gave may hold the plug-in that
    // holds it.
    struct Bindings : CWindowImpl {
        bool ProcessWindowMessage(UINT, WPARAM, LPARAM, LRESULT&) override { return false; }
        void OnFinalMessage(HWND) override { const auto gone = std::exchange(byId, {}); }

        std::map<std::wstring, Binding, std::less<>> byId;  // of the element, as it is written
    };
    Bindings bindings_;
};

}  // namespace tarvik
