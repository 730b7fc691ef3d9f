#include "page_control/view/keyboard_input.h"

#include <utility>

#include "page_control/view/key_names.h"
#include "page_control/view/mouse_input.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr LPARAM kExtended = 1 << 24;
constexpr LPARAM kWasDown = 1 << 30;
constexpr int kAltAndControl = 3;
constexpr wchar_t kDelete = 0x7F;

UINT ScanCodeOf(LPARAM lParam) {
    return (lParam >> 16) & 0xFF;
}

std::string CodeOf(LPARAM lParam) {
    return KeyCodeName(ScanCodeOf(lParam), (lParam & kExtended) != 0);
}

bool IsHeld(int key) {
    return GetKeyState(key) < 0;
}

bool IsPaste(UINT virtualKey) {
    return (virtualKey == 'V' && IsHeld(VK_CONTROL) && !IsHeld(VK_MENU)) ||
           (virtualKey == VK_INSERT && IsHeld(VK_SHIFT));
}

bool IsHistoryKey(UINT virtualKey) {
    if (virtualKey == VK_LEFT || virtualKey == VK_RIGHT) return IsHeld(VK_MENU);
    return virtualKey == VK_BROWSER_BACK || virtualKey == VK_BROWSER_FORWARD;
}

// As a page gets them with a key: AltGr selects a character, and would make a shortcut of it.
int ModifiersOf(UINT virtualKey, LPARAM lParam) {
    const int modifiers = KeyModifiers();
    return TypesWithAltGraph(virtualKey, ScanCodeOf(lParam)) ? modifiers & ~kAltAndControl : modifiers;
}

// Whether the key, with the modifiers that are held, never types a character. Ctrl and Alt together are
// AltGr.
bool IsCommandKey(UINT virtualKey) {
    return IsHeld(VK_CONTROL) != IsHeld(VK_MENU) || (virtualKey >= VK_F1 && virtualKey <= VK_F24) ||
           (virtualKey >= VK_BROWSER_BACK && virtualKey <= VK_LAUNCH_APP2) || virtualKey == VK_HELP ||
           (virtualKey == VK_ESCAPE && IsHeld(VK_SHIFT));
}

// The engine looks for its own shortcuts, such as Ctrl+W or F11, in raw presses only, so the page alone gets
// a press of the other type. That one cannot suppress the character that follows it.
const char* PressType(UINT virtualKey) {
    return IsCommandKey(virtualKey) && !IsHistoryKey(virtualKey) ? "keyDown" : "rawKeyDown";
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
            OnCharacter(static_cast<wchar_t>(wParam), lParam);
            return true;
        default:
            return false;
    }
}

void KeyboardInput::OnKey(UINT virtualKey, LPARAM lParam, bool down) {
    if (down && IsPaste(virtualKey)) clipboard_.QueueUpdate();
    const std::string code = CodeOf(lParam);
    const KeyLocation location = LocationOfKey(code);
    queue_.Add(InputQueue::DeliveryMode::kAwaitReceipt, "Input.dispatchKeyEvent",
               {{"type", down ? PressType(virtualKey) : "keyUp"},
                {"windowsVirtualKeyCode", virtualKey},
                {"nativeVirtualKeyCode", virtualKey},
                {"key", NameOf(virtualKey, lParam, down)},
                {"code", code},
                {"autoRepeat", down && (lParam & kWasDown) != 0},
                {"isKeypad", location == KeyLocation::kKeypad},
                {"location", location == KeyLocation::kKeypad ? 0 : static_cast<int>(location)},
                {"modifiers", ModifiersOf(virtualKey, lParam)}});
}

// The layout does not name a dead key that is pending. But its character is in the queue by now.
std::string KeyboardInput::NameOf(UINT virtualKey, LPARAM lParam, bool down) {
    MSG dead;
    if (down && PeekMessageW(&dead, window_, WM_DEADCHAR, WM_DEADCHAR, PM_NOREMOVE) &&
        CodeOf(dead.lParam) == CodeOf(lParam))
        deadKey_ = virtualKey;
    const bool isDead = virtualKey == deadKey_;
    if (isDead && !down) deadKey_ = 0;
    return isDead ? "Dead" : KeyName(virtualKey, ScanCodeOf(lParam), (lParam & kExtended) != 0);
}

void KeyboardInput::OnCharacter(wchar_t character, LPARAM lParam) {
    const wchar_t high = std::exchange(highSurrogate_, wchar_t{});
    if (IS_HIGH_SURROGATE(character)) {
        highSurrogate_ = character;
        return;
    }
    // The page has already received the keys of control characters. Only Enter also makes text.
    if ((character < L' ' && character != L'\r') || character == kDelete) return;
    std::wstring units;
    if (IS_LOW_SURROGATE(character)) units = high;
    units += character;
    const std::string text = Narrow(units);
    // Both together are AltGr, which selected the character. With them set the engine would not type it.
    int modifiers = KeyModifiers();
    if ((modifiers & kAltAndControl) == kAltAndControl) modifiers &= ~kAltAndControl;
    queue_.Add(InputQueue::DeliveryMode::kAwaitTextReceipt, "Input.dispatchKeyEvent",
               {{"type", "char"},
                {"text", text},
                {"key", text},
                {"code", CodeOf(lParam)},
                {"autoRepeat", (lParam & kWasDown) != 0},
                {"modifiers", modifiers}});
}

}  // namespace tarvik
