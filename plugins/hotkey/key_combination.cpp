#include "plugins/hotkey/key_combination.h"

#include "plugins/hotkey/key_text.h"

namespace tarvik {

namespace {

struct Name {
    std::wstring_view text;
    UINT code;
};

static_assert(kAlt == MOD_ALT && kCtrl == MOD_CONTROL && kShift == MOD_SHIFT && kWin == MOD_WIN);

constexpr Name kKeys[] = {
    {L"esc", VK_ESCAPE},    {L"pause", VK_CANCEL},  {L"print", VK_SNAPSHOT}, {L"scroll", VK_SCROLL},
    {L"insert", VK_INSERT}, {L"delete", VK_DELETE}, {L"pageup", VK_PRIOR},   {L"pagedown", VK_NEXT},
    {L"home", VK_HOME},     {L"end", VK_END},       {L"up", VK_UP},          {L"down", VK_DOWN},
    {L"left", VK_LEFT},     {L"right", VK_RIGHT},   {L"tab", VK_TAB},        {L"back", VK_BACK},
    {L"return", VK_RETURN}, {L"f1", VK_F1},         {L"f2", VK_F2},          {L"f3", VK_F3},
    {L"f4", VK_F4},         {L"f5", VK_F5},         {L"f6", VK_F6},          {L"f7", VK_F7},
    {L"f8", VK_F8},         {L"f9", VK_F9},         {L"f10", VK_F10},        {L"f11", VK_F11},
    {L"f12", VK_F12}};

std::optional<UINT> ParseCharacter(wchar_t character) {
    constexpr BYTE kNoKey = 0xFF;
    const BYTE key = LOBYTE(VkKeyScanW(character));
    return key == kNoKey ? std::nullopt : std::optional<UINT>(key);
}

std::optional<UINT> ParseKey(std::wstring_view text) {
    if (text.size() == 1) return ParseCharacter(text[0]);
    for (const auto& [name, key] : kKeys) {
        if (text.size() == name.size() && StartsWithIgnoreCase(text, name)) return key;
    }
    return std::nullopt;
}

}  // namespace

std::optional<KeyCombination> ParseKeyCombination(std::wstring_view text) {
    const auto parts = SplitKeyText(text);
    const auto key = parts ? ParseKey(parts->key) : std::nullopt;
    if (!key) return std::nullopt;
    return KeyCombination{parts->modifiers, *key};
}

}  // namespace tarvik
