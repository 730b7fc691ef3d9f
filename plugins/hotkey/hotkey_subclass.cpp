#include "plugins/hotkey/hotkey_subclass.h"

#include <utility>

#include "tarvik/script_object.h"
#include "tarvik/status.h"

namespace tarvik {

// Without a window RegisterHotKey would post WM_HOTKEY to the thread, which no window would receive.
bool CHotkeySubclassWindow::Register(const KeyCombination& keys, ComPtr<IDispatch> function,
                                     Variant context) {
    if (!Window()) return false;
    HotKey hotKey{0, std::move(function), std::move(context)};
    const auto [entry, isNew] = hotKeys_.try_emplace(keys, std::move(hotKey));
    if (!isNew) return false;
    entry->second.id = nextId_++;
    if (RegisterHotKey(Window(), entry->second.id, keys.modifiers, keys.key)) return true;
    const auto removed = hotKeys_.extract(entry);
    return false;
}

bool CHotkeySubclassWindow::Unregister(const KeyCombination& keys) {
    const auto found = hotKeys_.find(keys);
    if (found == hotKeys_.end()) return false;
    UnregisterHotKey(Window(), found->second.id);
    const auto removed = hotKeys_.extract(found);  // released after the map has been changed
    return true;
}

// The function may clear its own key.
bool CHotkeySubclassWindow::Call(const KeyCombination& keys) const {
    const auto found = hotKeys_.find(keys);
    if (found == hotKeys_.end()) return false;
    (void)Guard([&] {
        const ScriptObject function(found->second.function.Get());
        function(found->second.context);
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
