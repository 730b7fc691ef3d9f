#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>

#include "atl/window.h"
#include "host/plugin_registry/window_numbers.h"
#include "plugins/hotkey/key_combination.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// The system-wide hot keys of a window. The system unregisters them when it destroys the window.
class CHotkeySubclassWindow : public CWindowImpl {
  public:
    // Each press calls function(context). Returns false and changes nothing if the combination is taken, by
    // this window or another, or if the window has been destroyed.
    bool Register(const KeyCombination& keys, ComPtr<IDispatch> function, Variant context);
    // Returns whether the combination was registered.
    bool Unregister(const KeyCombination& keys);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // Releases functions and contexts: they may hold the plug-in, which would be a cycle.
    void OnFinalMessage(HWND window) override;

  private:
    struct HotKey {
        int id;
        ComPtr<IDispatch> function;
        Variant context;
    };
    bool Call(const KeyCombination& keys) const;

    std::map<KeyCombination, HotKey> hotKeys_;
    int nextId_ = kFirstHotKeyId;  // ids are not reused, even after a failure
};

}  // namespace tarvik
