#include "control/view/key_names.h"

#include <iterator>

#include "base/text.h"

namespace tarvik {

namespace {

// By scan code, of the first set.
constexpr const char* kPlainCodes[] = {
    "",
    "Escape",
    "Digit1",
    "Digit2",
    "Digit3",
    "Digit4",
    "Digit5",
    "Digit6",
    "Digit7",
    "Digit8",
    "Digit9",
    "Digit0",
    "Minus",
    "Equal",
    "Backspace",
    "Tab",
    "KeyQ",
    "KeyW",
    "KeyE",
    "KeyR",
    "KeyT",
    "KeyY",
    "KeyU",
    "KeyI",
    "KeyO",
    "KeyP",
    "BracketLeft",
    "BracketRight",
    "Enter",
    "ControlLeft",
    "KeyA",
    "KeyS",
    "KeyD",
    "KeyF",
    "KeyG",
    "KeyH",
    "KeyJ",
    "KeyK",
    "KeyL",
    "Semicolon",
    "Quote",
    "Backquote",
    "ShiftLeft",
    "Backslash",
    "KeyZ",
    "KeyX",
    "KeyC",
    "KeyV",
    "KeyB",
    "KeyN",
    "KeyM",
    "Comma",
    "Period",
    "Slash",
    "ShiftRight",
    "NumpadMultiply",
    "AltLeft",
    "Space",
    "CapsLock",
    "F1",
    "F2",
    "F3",
    "F4",
    "F5",
    "F6",
    "F7",
    "F8",
    "F9",
    "F10",
    "Pause",
    "ScrollLock",
    "Numpad7",
    "Numpad8",
    "Numpad9",
    "NumpadSubtract",
    "Numpad4",
    "Numpad5",
    "Numpad6",
    "NumpadAdd",
    "Numpad1",
    "Numpad2",
    "Numpad3",
    "Numpad0",
    "NumpadDecimal",
    "",
    "",
    "IntlBackslash",
    "F11",
    "F12",
};

struct Named {
    UINT code;
    const char* name;
};

constexpr Named kExtendedCodes[] = {
    {0x1C, "NumpadEnter"}, {0x1D, "ControlRight"}, {0x35, "NumpadDivide"}, {0x37, "PrintScreen"},
    {0x38, "AltRight"},    {0x45, "NumLock"},      {0x47, "Home"},         {0x48, "ArrowUp"},
    {0x49, "PageUp"},      {0x4B, "ArrowLeft"},    {0x4D, "ArrowRight"},   {0x4F, "End"},
    {0x50, "ArrowDown"},   {0x51, "PageDown"},     {0x52, "Insert"},       {0x53, "Delete"},
    {0x5B, "MetaLeft"},    {0x5C, "MetaRight"},    {0x5D, "ContextMenu"},
};

constexpr Named kKeys[] = {
    {VK_BACK, "Backspace"},    {VK_TAB, "Tab"},          {VK_RETURN, "Enter"},
    {VK_SHIFT, "Shift"},       {VK_CONTROL, "Control"},  {VK_MENU, "Alt"},
    {VK_PAUSE, "Pause"},       {VK_CAPITAL, "CapsLock"}, {VK_ESCAPE, "Escape"},
    {VK_PRIOR, "PageUp"},      {VK_NEXT, "PageDown"},    {VK_END, "End"},
    {VK_HOME, "Home"},         {VK_LEFT, "ArrowLeft"},   {VK_UP, "ArrowUp"},
    {VK_RIGHT, "ArrowRight"},  {VK_DOWN, "ArrowDown"},   {VK_SNAPSHOT, "PrintScreen"},
    {VK_INSERT, "Insert"},     {VK_DELETE, "Delete"},    {VK_LWIN, "Meta"},
    {VK_RWIN, "Meta"},         {VK_APPS, "ContextMenu"}, {VK_NUMLOCK, "NumLock"},
    {VK_SCROLL, "ScrollLock"},
};

template <size_t N>
const char* Find(const Named (&names)[N], UINT code) {
    for (const Named& named : names) {
        if (named.code == code) return named.name;
    }
    return "";
}

// The character that a key gives with Shift and the locks as they are. Control would give control characters,
// and asking must not disturb a dead key that is waiting.
std::string CharacterOf(UINT virtualKey, UINT scanCode) {
    BYTE state[256] = {};
    GetKeyboardState(state);
    if (!(state[VK_MENU] & 0x80)) state[VK_CONTROL] = 0;
    constexpr UINT kLeaveStateAlone = 4;
    wchar_t text[8] = {};
    const int length = ToUnicode(virtualKey, scanCode, state, text, 8, kLeaveStateAlone);
    if (length < 0) return "Dead";
    return length > 0 && text[0] >= L' ' ? Narrow({text, static_cast<size_t>(length)}) : std::string();
}

}  // namespace

std::string KeyCodeName(UINT scanCode, bool extended) {
    if (extended) return Find(kExtendedCodes, scanCode);
    return scanCode < std::size(kPlainCodes) ? kPlainCodes[scanCode] : "";
}

std::string KeyName(UINT virtualKey, UINT scanCode) {
    if (virtualKey >= VK_F1 && virtualKey <= VK_F24) return "F" + std::to_string(virtualKey - VK_F1 + 1);
    const std::string name = Find(kKeys, virtualKey);
    return name.empty() ? CharacterOf(virtualKey, scanCode) : name;
}

}  // namespace tarvik
