#include "plugins/hotkey/key_combination.h"

#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(KeyCombination, ParsesModifiersAndAKey) {
    const std::pair<const wchar_t*, KeyCombination> good[] = {
        {L"a", {0, 'A'}},
        {L"7", {0, '7'}},
        {L"F12", {0, VK_F12}},
        {L"pagedown", {0, VK_NEXT}},
        {L"ctrl+alt+shift+win+K", {MOD_CONTROL | MOD_ALT | MOD_SHIFT | MOD_WIN, 'K'}},
        {L"SHIFT+Shift+esc", {MOD_SHIFT, VK_ESCAPE}},
        {L"ctrlx+window+Return", {MOD_CONTROL | MOD_WIN, VK_RETURN}},  // matched by prefix
    };
    for (const auto& [text, combination] : good)
        EXPECT_EQ(ParseKeyCombination(text), combination) << Narrow(text);
    for (const wchar_t* bad : {L"", L"ctrl", L"ctrl+", L"+a", L"a+b", L"control+a", L"xctrl+a", L" ctrl+a",
                               L"f13", L"enter", L"pageup ", L"\u2603", L"ctrl++a"})
        EXPECT_FALSE(ParseKeyCombination(bad)) << Narrow(bad);
    EXPECT_EQ(ParseKeyCombination(L":"), ParseKeyCombination(L";")) << "a character does not imply shift";
}

}  // namespace
}  // namespace tarvik
