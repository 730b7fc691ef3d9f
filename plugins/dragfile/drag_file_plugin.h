#pragma once

#include <map>
#include <string>
#include <utility>

#include "atl/window.h"
#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

// `dragfile`: binds functions to elements that accept dropped files. The site looks up the binding of an
// element and calls its function. Bindings survive a navigation.
class CDragFilePlugin : public BrowserPlugin<CDragFilePlugin> {
  public:
    STDMETHODIMP Initialize(TVK::ICore* core, IUnknown* browser) override;

    static std::span<const Member<CDragFilePlugin>> Members();

    // bind(id, function[, context]) replaces the binding of an id; any other value removes it.
    HRESULT Bind(const Call& call);
    // get(id) returns an object with `callback` and `context`, or nothing if the id has no binding.
    HRESULT Get(const Call& call);

  private:
    struct Binding {
        ComPtr<IDispatch> function;
        Variant context;
    };
    // Released with the window, and empty without one: a function or context may hold the plug-in, which
    // would be a cycle.
    struct Bindings : CWindowImpl {
        bool ProcessWindowMessage(UINT, WPARAM, LPARAM, LRESULT&) override { return false; }
        void OnFinalMessage(HWND) override { const auto released = std::exchange(byId, {}); }

        std::map<std::wstring, Binding, std::less<>> byId;
    };
    Bindings bindings_;
};

}  // namespace tarvik
