#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace tarvik {

// What pages call a key: `code` by its place on the keyboard, `key` by its meaning with the modifiers and
// locks of this moment. Tables of the published standards for KeyboardEvent.code and KeyboardEvent.key.

// Empty for keys that the standard does not name.
std::string KeyCodeName(UINT scanCode, bool extended);

// "Unidentified" for keys that have neither a name nor a character.
std::string KeyName(UINT virtualKey, UINT scanCode);

// Which of several keys of one name it is; the numbers are those of KeyboardEvent.location.
enum class KeyPlace { kStandard, kLeft, kRight, kKeypad };
KeyPlace PlaceOfKey(std::string_view code);

}  // namespace tarvik
