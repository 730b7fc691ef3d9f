#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// A page's names for a key: `code` for its place on the keyboard, `key` for its meaning with the current
// modifiers and locks. The tables are those of the published standards for KeyboardEvent.code and
// KeyboardEvent.key.

// Empty for keys without a name in the standard.
std::string KeyCodeName(UINT scanCode, bool extended);

// "Unidentified" for keys with neither a name nor a character.
std::string KeyName(UINT virtualKey, UINT scanCode, bool extended);

// Whether Ctrl and Alt are held and stand for AltGr, because the key types a character with them.
bool TypesWithAltGraph(UINT virtualKey, UINT scanCode);

// Distinguishes keys of the same name; the numbers are those of KeyboardEvent.location.
enum class KeyLocation { kStandard, kLeft, kRight, kKeypad };
KeyLocation LocationOfKey(std::string_view code);

}  // namespace tarvik
