#pragma once

#include <windows.h>
#include <oaidl.h>

#include <map>

#include "atl/window.h"
#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"
#include "plugins/hotkey/key_combination.h"

namespace tarvik {

// The hot keys of a window, which the system tells it of wherever the user works. The system lets go of them
// with the window.
class CHotkeySubclassWindow : public CWindowImpl {
  public:
    // The function is called as function(context) at each press. False, and nothing changes, if the window
    // has the combination already, if anybody else has it, or if the window has gone.
    bool Register(const KeyCombination& keys, ComPtr<IDispatch> function, Variant context);
    // Whether the window had it.
    bool Unregister(const KeyCombination& keys);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    // What script gave may hold the plug-in that holds it.
    void OnFinalMessage(HWND window) override;

  private:
    struct HotKey {
        int id;
        ComPtr<IDispatch> function;
        Variant context;
    };
    bool Call(const KeyCombination& keys) const;

    std::map<KeyCombination, HotKey> hotKeys_;
    int nextId_ = 1000;  // one that was refused is not used again
};

}  // namespace tarvik
