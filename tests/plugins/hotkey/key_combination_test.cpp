#include "plugins/hotkey/key_combination.h"

#include <map>
#include <regex>

#include "tests/support/test.h"

namespace tarvik {
namespace {

std::wstring Lower(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

// The codes of the keys that have names, as the page authors know them.
const std::map<std::wstring, UINT> kNamed = {
    {L"esc", 27},    {L"pause", 3},     {L"print", 44}, {L"scroll", 145}, {L"insert", 45}, {L"delete", 46},
    {L"pageup", 33}, {L"pagedown", 34}, {L"home", 36},  {L"end", 35},     {L"up", 38},     {L"down", 40},
    {L"left", 37},   {L"right", 39},    {L"tab", 9},    {L"back", 8},     {L"return", 13}, {L"f1", 112},
    {L"f2", 113},    {L"f3", 114},      {L"f4", 115},   {L"f5", 116},     {L"f6", 117},    {L"f7", 118},
    {L"f8", 119},    {L"f9", 120},      {L"f10", 121},  {L"f11", 122},    {L"f12", 123}};

// The grammar once more, as an expression. Of single characters it knows letters and digits, whose codes are
// their capitals.
std::optional<KeyCombination> Expected(const std::wstring& text) {
    static const std::wregex shape(LR"(((?:(?:ctrl|shift|alt|win)[^+]*\+)*)([a-z0-9]|[^+]{2,}))");
    const std::wstring lower = Lower(text);
    std::wsmatch match;
    if (!std::regex_match(lower, match, shape)) return std::nullopt;
    KeyCombination keys;
    const std::wstring modifiers = L"+" + match.str(1), key = match.str(2);
    if (modifiers.find(L"+alt") != modifiers.npos) keys.modifiers += 1;
    if (modifiers.find(L"+ctrl") != modifiers.npos) keys.modifiers += 2;
    if (modifiers.find(L"+shift") != modifiers.npos) keys.modifiers += 4;
    if (modifiers.find(L"+win") != modifiers.npos) keys.modifiers += 8;
    if (key.size() > 1 && !kNamed.contains(key)) return std::nullopt;
    keys.key = key.size() > 1 ? kNamed.at(key) : towupper(key[0]);
    return keys;
}

TEST(KeyCombination, IsReadAsItsGrammarSays) {
    std::vector<std::wstring> parts = {L"",    L"ctrl",   L"CTRL", L"ctrlx",  L"xctrl", L"ctr",   L"Shift",
                                       L"alt", L"al",     L"win",  L"Window", L" ctrl", L"a",     L"Z",
                                       L"0",   L"\u2603", L"F5",   L"f13",    L"f",     L"enter", L"f5 "};
    for (const auto& [name, code] : kNamed)
        parts.push_back(name);
    int found = 0;
    const auto check = [&](const std::wstring& text) {
        EXPECT_EQ(ReadKeyCombination(text), Expected(text)) << Narrow(text);
        found += Expected(text).has_value();
    };
    for (const auto& last : parts) {
        check(last);
        for (const auto& middle : parts) {
            check(middle + L"+" + last);
            for (const auto& first : parts)
                check(first + L"+" + middle + L"+" + last);
        }
    }
    EXPECT_GT(found, 1000);
}

TEST(KeyCombination, TakesACharacterForItsKey) {
    EXPECT_EQ(ReadKeyCombination(L"shift+pause"), (KeyCombination{MOD_SHIFT, VK_CANCEL}));
    EXPECT_EQ(ReadKeyCombination(L":"), ReadKeyCombination(L";")) << "its shift does not count";
    EXPECT_EQ(ReadKeyCombination(L" "), (KeyCombination{0, VK_SPACE}));
    EXPECT_EQ(ReadKeyCombination(std::wstring_view(L"f5\0", 3)), std::nullopt);
}

}  // namespace
}  // namespace tarvik
