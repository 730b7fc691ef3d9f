#pragma once

#include <optional>
#include <string_view>

namespace tarvik {

// The values of MOD_ALT and its like.
enum KeyModifier : unsigned { kAlt = 1, kCtrl = 2, kShift = 4, kWin = 8 };

// A text like "ctrl+alt+f5" in its parts.
struct KeyText {
    unsigned modifiers = 0;
    std::wstring_view key;
};

// Nothing if something else than a modifier stands before a plus sign. See ReadKeyCombination.
std::optional<KeyText> SplitKeyText(std::wstring_view text);

// Ignores the case of ASCII letters; `start` is in lower case.
bool StartsWithIgnoringCase(std::wstring_view text, std::wstring_view start);

}  // namespace tarvik
