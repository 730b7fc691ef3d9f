#include "plugins/hotkey/key_text.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

struct Modifier {
    std::wstring_view name;
    KeyModifier flag;
};

constexpr Modifier kModifiers[] = {{L"ctrl", kCtrl}, {L"shift", kShift}, {L"alt", kAlt}, {L"win", kWin}};

}  // namespace

bool StartsWithIgnoreCase(std::wstring_view text, std::wstring_view start) {
    const auto lower = [](wchar_t character) {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a')
                                                      : character;
    };
    return std::ranges::equal(text.substr(0, start.size()), start, {}, lower);
}

std::optional<KeyText> SplitKeyText(std::wstring_view text) {
    KeyText parts;
    for (size_t plus; (plus = text.find(L'+')) != text.npos; text.remove_prefix(plus + 1)) {
        const auto modifier = std::ranges::find_if(kModifiers, [&](const Modifier& each) {
            return StartsWithIgnoreCase(text.substr(0, plus), each.name);
        });
        if (modifier == std::end(kModifiers)) return std::nullopt;
        parts.modifiers |= modifier->flag;
    }
    parts.key = text;
    return parts;
}

}  // namespace tarvik
