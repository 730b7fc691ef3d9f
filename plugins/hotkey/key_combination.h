#pragma once

#include <windows.h>

#include <compare>
#include <optional>
#include <string_view>

namespace tarvik {

// A virtual key and its modifiers, which are flags such as MOD_ALT.
struct KeyCombination {
    UINT modifiers = 0;
    UINT key = 0;

    auto operator<=>(const KeyCombination&) const = default;  // NOLINT(modernize-use-nullptr): finds none
};

// Parses a text like "ctrl+alt+f5": modifiers (ctrl, shift, alt, win), each followed by a plus sign, then a
// key, which is one character or a name. Case does not matter. Empty for any other text. By design
// - a modifier is matched by its prefix, so "ctrlx+a" is ctrl+a, and may be repeated;
// - "+" cannot be the key, because it separates;
// - a character stands for its key in the current keyboard layout and does not imply shift;
// - "pause" is VK_CANCEL, not the pause key.
std::optional<KeyCombination> ParseKeyCombination(std::wstring_view text);

}  // namespace tarvik
