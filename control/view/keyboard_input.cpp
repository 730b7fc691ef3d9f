#include "control/view/keyboard_input.h"

#include "base/text.h"
#include "control/view/clipboard.h"
#include "control/view/key_names.h"
#include "control/view/mouse_input.h"

namespace tarvik {

namespace {

constexpr LPARAM kExtended = 1 << 24;
constexpr LPARAM kWasDown = 1 << 30;

UINT ScanCodeOf(LPARAM lParam) {
    return (lParam >> 16) & 0xFF;
}

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

// The engine has a clipboard of its own; these keys mean the system's.
bool IsClipboardKey(UINT virtualKey, UINT letter, UINT other, int otherHeld) {
    return (virtualKey == letter && IsHeld(VK_CONTROL) && !IsHeld(VK_MENU)) ||
           (virtualKey == other && IsHeld(otherHeld));
}

}  // namespace

bool KeyboardInput::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto virtualKey = static_cast<UINT>(wParam);
    switch (message) {
        case WM_KEYDOWN:
            OnKey(virtualKey, lParam, true);
            return true;
        case WM_KEYUP:
            OnKey(virtualKey, lParam, false);
            return true;
        case WM_SYSKEYDOWN:
            OnKey(virtualKey, lParam, true);
            return false;
        case WM_SYSKEYUP:
            OnKey(virtualKey, lParam, false);
            return false;
        case WM_CHAR:
            OnCharacter(static_cast<wchar_t>(wParam));
            return true;
        default:
            return false;
    }
}

void KeyboardInput::OnKey(UINT virtualKey, LPARAM lParam, bool down) {
    if (down && IsClipboardKey(virtualKey, 'V', VK_INSERT, VK_SHIFT)) return PasteIntoPage(window_, target_);
    if (down && IsClipboardKey(virtualKey, 'C', VK_INSERT, VK_CONTROL)) CopyFromPage(window_, target_);
    if (down && IsClipboardKey(virtualKey, 'X', VK_DELETE, VK_SHIFT)) CopyFromPage(window_, target_);
    const bool extended = (lParam & kExtended) != 0;
    target_.Post("Input.dispatchKeyEvent", {{"type", down ? "rawKeyDown" : "keyUp"},
                                            {"windowsVirtualKeyCode", virtualKey},
                                            {"nativeVirtualKeyCode", virtualKey},
                                            {"key", KeyName(virtualKey, ScanCodeOf(lParam))},
                                            {"code", KeyCodeName(ScanCodeOf(lParam), extended)},
                                            {"autoRepeat", down && (lParam & kWasDown) != 0},
                                            {"isKeypad", virtualKey >= VK_NUMPAD0 && virtualKey <= VK_DIVIDE},
                                            {"modifiers", KeyModifiers()}});
}

void KeyboardInput::OnCharacter(wchar_t character) {
    if (IS_HIGH_SURROGATE(character)) {
        highSurrogate_ = character;
        return;
    }
    if (IS_LOW_SURROGATE(character)) {
        const wchar_t pair[] = {highSurrogate_, character};
        target_.Post("Input.insertText", {{"text", Narrow({pair, 2})}});
        return;
    }
    // Control characters come from keys that the page has seen already; Enter is the one that makes text.
    if (character < L' ' && character != L'\r') return;
    const std::string text = Narrow({&character, 1});
    target_.Post("Input.dispatchKeyEvent",
                 {{"type", "char"}, {"text", text}, {"key", text}, {"modifiers", KeyModifiers()}});
}

}  // namespace tarvik
