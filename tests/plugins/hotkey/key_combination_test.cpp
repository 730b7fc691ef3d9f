#include "plugins/hotkey/key_combination.h"

#include <cwctype>
#include <map>
#include <regex>

#include "tests/support/test.h"

namespace tarvik {
namespace {

// The codes of the keys that have names.
const std::map<std::wstring, UINT> kNamed = {
    {L"esc", 27},    {L"pause", 3},     {L"print", 44}, {L"scroll", 145}, {L"insert", 45}, {L"delete", 46},
    {L"pageup", 33}, {L"pagedown", 34}, {L"home", 36},  {L"end", 35},     {L"up", 38},     {L"down", 40},
    {L"left", 37},   {L"right", 39},    {L"tab", 9},    {L"back", 8},     {L"return", 13}, {L"f1", 112},
    {L"f2", 113},    {L"f3", 114},      {L"f4", 115},   {L"f5", 116},     {L"f6", 117},    {L"f7", 118},
    {L"f8", 119},    {L"f9", 120},      {L"f10", 121},  {L"f11", 122},    {L"f12", 123}};

// The grammar once more, as an expression. Of single characters it knows letters and digits, whose codes are
// their capitals.
std::optional<KeyCombination> Expected(std::wstring text) {
    static const std::wregex shape(LR"(((?:(?:ctrl|shift|alt|win)[^+]*\+)*)([a-z0-9]|[^+]{2,}))");
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    std::wsmatch match;
    if (!std::regex_match(text, match, shape)) return std::nullopt;
    const std::wstring modifiers = L"+" + match.str(1), key = match.str(2);
    if (key.size() > 1 && !kNamed.contains(key)) return std::nullopt;
    const auto flag = [&](const wchar_t* name, UINT value) {
        return modifiers.find(name) == modifiers.npos ? 0 : value;
    };
    return KeyCombination{flag(L"+alt", 1) + flag(L"+ctrl", 2) + flag(L"+shift", 4) + flag(L"+win", 8),
                          key.size() > 1 ? kNamed.at(key) : towupper(key[0])};
}

TEST(KeyCombination, IsReadAsItsGrammarSays) {
    std::vector<std::wstring> parts = {L"",    L"ctrl",   L"CTRL",  L"ctrlx", L"xctrl",  L"ctr", L"Shift",
                                       L"alt", L"Window", L" ctrl", L"a",     L"Z",      L"0",   L"\u2603",
                                       L"F5",  L"f13",    L"f",     L"enter", L"pageup "};
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
    EXPECT_EQ(ReadKeyCombination(L":"), ReadKeyCombination(L";")) << "a character adds no shift";
}

}  // namespace
}  // namespace tarvik
