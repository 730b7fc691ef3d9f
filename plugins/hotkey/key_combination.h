#pragma once

#include <windows.h>

#include <compare>
#include <optional>
#include <string_view>

namespace tarvik {

// A key and the modifiers held with it, in the system's terms: MOD_ALT and others, and a virtual key.
struct KeyCombination {
    UINT modifiers = 0;
    UINT key = 0;

    auto operator<=>(const KeyCombination&) const = default;
};

// Reads a text like "ctrl+alt+f5": modifiers with a plus sign behind each (ctrl, shift, alt, win), and one
// key, which is a single character or has a name. The case of letters does not count. Nothing if the text is
// no combination. Intended:
// - a modifier is known by its start, so "ctrlx+a" is ctrl+a, and it may be repeated;
// - "+" is no key, because it ends a modifier;
// - a character stands for the key that it is on in the keyboard layout in use, and adds no shift of its own;
// - "pause" is VK_CANCEL, not the pause key.
std::optional<KeyCombination> ReadKeyCombination(std::wstring_view text);

}  // namespace tarvik
