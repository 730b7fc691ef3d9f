#include "page_control/view/key_names.h"

#include "tarvik/text.h"

namespace tarvik {

namespace {

struct KeyEntry {
    UINT code;
    const char* name;
};

// By scan code (set 1).
constexpr KeyEntry kStandardCodes[] = {
    {0x01, "Escape"},
    {0x02, "Digit1"},
    {0x03, "Digit2"},
    {0x04, "Digit3"},
    {0x05, "Digit4"},
    {0x06, "Digit5"},
    {0x07, "Digit6"},
    {0x08, "Digit7"},
    {0x09, "Digit8"},
    {0x0A, "Digit9"},
    {0x0B, "Digit0"},
    {0x0C, "Minus"},
    {0x0D, "Equal"},
    {0x0E, "Backspace"},
    {0x0F, "Tab"},
    {0x10, "KeyQ"},
    {0x11, "KeyW"},
    {0x12, "KeyE"},
    {0x13, "KeyR"},
    {0x14, "KeyT"},
    {0x15, "KeyY"},
    {0x16, "KeyU"},
    {0x17, "KeyI"},
    {0x18, "KeyO"},
    {0x19, "KeyP"},
    {0x1A, "BracketLeft"},
    {0x1B, "BracketRight"},
    {0x1C, "Enter"},
    {0x1D, "ControlLeft"},
    {0x1E, "KeyA"},
    {0x1F, "KeyS"},
    {0x20, "KeyD"},
    {0x21, "KeyF"},
    {0x22, "KeyG"},
    {0x23, "KeyH"},
    {0x24, "KeyJ"},
    {0x25, "KeyK"},
    {0x26, "KeyL"},
    {0x27, "Semicolon"},
    {0x28, "Quote"},
    {0x29, "Backquote"},
    {0x2A, "ShiftLeft"},
    {0x2B, "Backslash"},
    {0x2C, "KeyZ"},
    {0x2D, "KeyX"},
    {0x2E, "KeyC"},
    {0x2F, "KeyV"},
    {0x30, "KeyB"},
    {0x31, "KeyN"},
    {0x32, "KeyM"},
    {0x33, "Comma"},
    {0x34, "Period"},
    {0x35, "Slash"},
    {0x36, "ShiftRight"},
    {0x37, "NumpadMultiply"},
    {0x38, "AltLeft"},
    {0x39, "Space"},
    {0x3A, "CapsLock"},
    {0x3B, "F1"},
    {0x3C, "F2"},
    {0x3D, "F3"},
    {0x3E, "F4"},
    {0x3F, "F5"},
    {0x40, "F6"},
    {0x41, "F7"},
    {0x42, "F8"},
    {0x43, "F9"},
    {0x44, "F10"},
    {0x45, "Pause"},
    {0x46, "ScrollLock"},
    {0x47, "Numpad7"},
    {0x48, "Numpad8"},
    {0x49, "Numpad9"},
    {0x4A, "NumpadSubtract"},
    {0x4B, "Numpad4"},
    {0x4C, "Numpad5"},
    {0x4D, "Numpad6"},
    {0x4E, "NumpadAdd"},
    {0x4F, "Numpad1"},
    {0x50, "Numpad2"},
    {0x51, "Numpad3"},
    {0x52, "Numpad0"},
    {0x53, "NumpadDecimal"},
    {0x56, "IntlBackslash"},
    {0x57, "F11"},
    {0x58, "F12"},
    {0x59, "NumpadEqual"},
    {0x64, "F13"},
    {0x65, "F14"},
    {0x66, "F15"},
    {0x67, "F16"},
    {0x68, "F17"},
    {0x69, "F18"},
    {0x6A, "F19"},
    {0x6B, "F20"},
    {0x6C, "F21"},
    {0x6D, "F22"},
    {0x6E, "F23"},
    {0x70, "KanaMode"},
    {0x71, "Lang2"},
    {0x72, "Lang1"},
    {0x73, "IntlRo"},
    {0x76, "F24"},
    {0x79, "Convert"},
    {0x7B, "NonConvert"},
    {0x7D, "IntlYen"},
    {0x7E, "NumpadComma"},
};

// Extended keys: the prefix E0 distinguishes them from keys with the same scan code.
constexpr KeyEntry kExtendedCodes[] = {
    {0x10, "MediaTrackPrevious"},
    {0x19, "MediaTrackNext"},
    {0x1C, "NumpadEnter"},
    {0x1D, "ControlRight"},
    {0x20, "AudioVolumeMute"},
    {0x22, "MediaPlayPause"},
    {0x24, "MediaStop"},
    {0x2E, "AudioVolumeDown"},
    {0x30, "AudioVolumeUp"},
    {0x32, "BrowserHome"},
    {0x35, "NumpadDivide"},
    {0x36, "ShiftRight"},
    {0x37, "PrintScreen"},
    {0x38, "AltRight"},
    {0x45, "NumLock"},
    {0x46, "Pause"},
    {0x47, "Home"},
    {0x48, "ArrowUp"},
    {0x49, "PageUp"},
    {0x4B, "ArrowLeft"},
    {0x4D, "ArrowRight"},
    {0x4F, "End"},
    {0x50, "ArrowDown"},
    {0x51, "PageDown"},
    {0x52, "Insert"},
    {0x53, "Delete"},
    {0x5B, "MetaLeft"},
    {0x5C, "MetaRight"},
    {0x5D, "ContextMenu"},
    {0x65, "BrowserSearch"},
    {0x66, "BrowserFavorites"},
    {0x67, "BrowserRefresh"},
    {0x68, "BrowserStop"},
    {0x69, "BrowserForward"},
    {0x6A, "BrowserBack"},
};

constexpr KeyEntry kKeys[] = {
    {VK_BACK, "Backspace"},
    {VK_TAB, "Tab"},
    {VK_CLEAR, "Clear"},
    {VK_RETURN, "Enter"},
    {VK_SHIFT, "Shift"},
    {VK_CONTROL, "Control"},
    {VK_MENU, "Alt"},
    {VK_PAUSE, "Pause"},
    {VK_CANCEL, "Cancel"},
    {VK_CAPITAL, "CapsLock"},
    {VK_ESCAPE, "Escape"},
    {VK_CONVERT, "Convert"},
    {VK_NONCONVERT, "NonConvert"},
    {VK_PRIOR, "PageUp"},
    {VK_NEXT, "PageDown"},
    {VK_END, "End"},
    {VK_HOME, "Home"},
    {VK_LEFT, "ArrowLeft"},
    {VK_UP, "ArrowUp"},
    {VK_RIGHT, "ArrowRight"},
    {VK_DOWN, "ArrowDown"},
    {VK_SNAPSHOT, "PrintScreen"},
    {VK_INSERT, "Insert"},
    {VK_DELETE, "Delete"},
    {VK_HELP, "Help"},
    {VK_LWIN, "Meta"},
    {VK_RWIN, "Meta"},
    {VK_APPS, "ContextMenu"},
    {VK_NUMLOCK, "NumLock"},
    {VK_SCROLL, "ScrollLock"},
    {VK_PROCESSKEY, "Process"},
    {VK_BROWSER_BACK, "BrowserBack"},
    {VK_BROWSER_FORWARD, "BrowserForward"},
    {VK_BROWSER_REFRESH, "BrowserRefresh"},
    {VK_BROWSER_STOP, "BrowserStop"},
    {VK_BROWSER_SEARCH, "BrowserSearch"},
    {VK_BROWSER_FAVORITES, "BrowserFavorites"},
    {VK_BROWSER_HOME, "BrowserHome"},
    {VK_VOLUME_MUTE, "AudioVolumeMute"},
    {VK_VOLUME_DOWN, "AudioVolumeDown"},
    {VK_VOLUME_UP, "AudioVolumeUp"},
    {VK_MEDIA_NEXT_TRACK, "MediaTrackNext"},
    {VK_MEDIA_PREV_TRACK, "MediaTrackPrevious"},
    {VK_MEDIA_STOP, "MediaStop"},
    {VK_MEDIA_PLAY_PAUSE, "MediaPlayPause"},
};

template <size_t N>
const char* Find(const KeyEntry (&names)[N], UINT code) {
    for (const KeyEntry& entry : names) {
        if (entry.code == code) return entry.name;
    }
    return "";
}

// The character that a key produces with the current Shift, AltGr and lock states; empty if none. The query
// must not consume a pending dead key.
std::string CharacterOf(UINT virtualKey, UINT scanCode, const BYTE (&state)[256]) {
    constexpr UINT kKeepKeyboardState = 4;
    wchar_t text[8] = {};
    const int length = ToUnicode(virtualKey, scanCode, state, text, 8, kKeepKeyboardState);
    if (length < 0) return "Dead";
    return length > 0 && text[0] >= L' ' ? Narrow({text, static_cast<size_t>(length)}) : std::string();
}

// With Ctrl and Alt, which change a key's meaning only together, and only for some keys.
std::string AltGraphCharacterOf(UINT virtualKey, UINT scanCode) {
    BYTE state[256] = {};
    GetKeyboardState(state);
    return state[VK_CONTROL] & state[VK_MENU] & 0x80 ? CharacterOf(virtualKey, scanCode, state)
                                                     : std::string();
}

std::string CharacterOf(UINT virtualKey, UINT scanCode) {
    const std::string text = AltGraphCharacterOf(virtualKey, scanCode);
    if (!text.empty()) return text;
    BYTE state[256] = {};
    GetKeyboardState(state);
    for (const int key : {VK_CONTROL, VK_LCONTROL, VK_RCONTROL, VK_MENU, VK_LMENU, VK_RMENU})
        state[key] = 0;
    return CharacterOf(virtualKey, scanCode, state);
}

// Whether the keyboard layout types a character of a western alphabet, or the euro sign, with AltGr.
bool LayoutHasAltGraph() {
    constexpr wchar_t kLastLatin = 0x17F;
    constexpr int kControlAndAlt = 6;
    const auto needsAltGraph = [](wchar_t character) {
        const SHORT key = VkKeyScanW(character);
        return key != -1 && (HIBYTE(key) & kControlAndAlt) == kControlAndAlt;
    };
    for (wchar_t character = L'!'; character <= kLastLatin; ++character) {
        if (needsAltGraph(character)) return true;
    }
    return needsAltGraph(L'\u20AC');
}

}  // namespace

std::string KeyCodeName(UINT scanCode, bool extended) {
    return extended ? Find(kExtendedCodes, scanCode) : Find(kStandardCodes, scanCode);
}

KeyLocation LocationOfKey(std::string_view code) {
    if (code.starts_with("Numpad")) return KeyLocation::kKeypad;
    for (const std::string_view key : {"Shift", "Control", "Alt", "Meta"}) {
        if (code.starts_with(key)) return code.ends_with("Left") ? KeyLocation::kLeft : KeyLocation::kRight;
    }
    return KeyLocation::kStandard;
}

std::string KeyName(UINT virtualKey, UINT scanCode, bool extended) {
    if (virtualKey >= VK_F1 && virtualKey <= VK_F24) return "F" + std::to_string(virtualKey - VK_F1 + 1);
    if (virtualKey == VK_MENU && extended && LayoutHasAltGraph()) return "AltGraph";
    std::string name = Find(kKeys, virtualKey);
    if (name.empty()) name = CharacterOf(virtualKey, scanCode);
    return name.empty() ? "Unidentified" : name;
}

bool TypesWithAltGraph(UINT virtualKey, UINT scanCode) {
    return *Find(kKeys, virtualKey) == '\0' && !AltGraphCharacterOf(virtualKey, scanCode).empty();
}

}  // namespace tarvik
