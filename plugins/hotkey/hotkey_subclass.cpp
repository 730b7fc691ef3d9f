#include "plugins/hotkey/hotkey_subclass.h"

#include <utility>

#include "tarvik/status.h"
#include "tarvik/properties.h"

namespace tarvik {

// Without a window the system would tell the thread, and nobody would hear.
bool CHotkeySubclassWindow::Register(const KeyCombination& keys, ComPtr<IDispatch> function,
                                     Variant context) {
    if (!Window()) return false;
    HotKey hotKey{0, std::move(function), std::move(context)};
    const auto [place, isNew] = hotKeys_.try_emplace(keys, std::move(hotKey));
    if (!isNew) return false;
    place->second.id = nextId_++;
    if (RegisterHotKey(Window(), place->second.id, keys.modifiers, keys.key)) return true;
    const auto refused = hotKeys_.extract(place);
    return false;
}

bool CHotkeySubclassWindow::Unregister(const KeyCombination& keys) {
    const auto found = hotKeys_.find(keys);
    if (found == hotKeys_.end()) return false;
    UnregisterHotKey(Window(), found->second.id);
    const auto removed = hotKeys_.extract(found);  // let go of when the table is done with it
    return true;
}

// The function may clear its own key.
bool CHotkeySubclassWindow::Call(const KeyCombination& keys) const {
    const auto found = hotKeys_.find(keys);
    if (found == hotKeys_.end()) return false;
    (void)Guard([&] {
        const ComPtr<IDispatch> function = found->second.function;
        const Variant context = Variant::Copy(found->second.context);
        return CallScriptFunction(function.Get(), {&context});
    });
    return true;
}

void CHotkeySubclassWindow::OnFinalMessage(HWND) {
    const auto hotKeys = std::exchange(hotKeys_, {});
}

bool CHotkeySubclassWindow::ProcessWindowMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
    result = 0;
    return message == WM_HOTKEY && Call({LOWORD(lParam), HIWORD(lParam)});
}

}  // namespace tarvik
