#pragma once

#include <optional>
#include <string_view>

namespace tarvik {

// The values of MOD_ALT and the other modifiers.
enum KeyModifier : unsigned { kAlt = 1, kCtrl = 2, kShift = 4, kWin = 8 };

// The parts of a text like "ctrl+alt+f5".
struct KeyText {
    unsigned modifiers = 0;
    std::wstring_view key;
};

// Empty if any text before a plus sign is not a modifier. See ParseKeyCombination.
std::optional<KeyText> SplitKeyText(std::wstring_view text);

// Ignores the case of ASCII letters; `start` is in lower case.
bool StartsWithIgnoreCase(std::wstring_view text, std::wstring_view start);

}  // namespace tarvik
