#include "control/view/keyboard_input.h"

#include "base/text.h"
#include "control/view/key_names.h"
#include "tests/control/view/input_fixture.h"

namespace tarvik {
namespace {

// ---- Names. What is expected is said by the keys' meaning; the system knows the places.

UINT ScanCodeOf(UINT virtualKey) {
    return MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC) & 0xFF;
}

TEST(KeyNames, OfLettersDigitsAndFunctionKeys) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        EXPECT_EQ(KeyCodeName(ScanCodeOf(letter), false), std::string("Key") + letter);
        EXPECT_EQ(KeyName(letter, ScanCodeOf(letter)), std::string(1, static_cast<char>(letter + 32)));
    }
    for (char digit = '0'; digit <= '9'; ++digit) {
        EXPECT_EQ(KeyCodeName(ScanCodeOf(digit), false), std::string("Digit") + digit);
    }
    const UINT kPad[] = {0x52, 0x4F, 0x50, 0x51, 0x4B, 0x4C, 0x4D, 0x47, 0x48, 0x49};
    for (UINT digit = 0; digit < 10; ++digit)
        EXPECT_EQ(KeyCodeName(kPad[digit], false), "Numpad" + std::to_string(digit));
    for (int number = 1; number <= 24; ++number) {
        const UINT key = VK_F1 + number - 1;
        const std::string name = "F" + std::to_string(number);
        if (number <= 12) {
            EXPECT_EQ(KeyCodeName(ScanCodeOf(key), false), name);
        }
        EXPECT_EQ(KeyName(key, 0), name);
    }
}

TEST(KeyNames, OfKeysByThePlaceAndTheMeaning) {
    struct {
        UINT scanCode;
        bool extended;
        const char* code;
        UINT virtualKey;
        const char* key;
    } const kKeys[] = {
        {0x01, false, "Escape", VK_ESCAPE, "Escape"},
        {0x0E, false, "Backspace", VK_BACK, "Backspace"},
        {0x0F, false, "Tab", VK_TAB, "Tab"},
        {0x1C, false, "Enter", VK_RETURN, "Enter"},
        {0x1C, true, "NumpadEnter", VK_RETURN, "Enter"},
        {0x1D, false, "ControlLeft", VK_CONTROL, "Control"},
        {0x1D, true, "ControlRight", VK_CONTROL, "Control"},
        {0x2A, false, "ShiftLeft", VK_SHIFT, "Shift"},
        {0x36, false, "ShiftRight", VK_SHIFT, "Shift"},
        {0x38, false, "AltLeft", VK_MENU, "Alt"},
        {0x38, true, "AltRight", VK_MENU, "Alt"},
        {0x39, false, "Space", VK_SPACE, " "},
        {0x3A, false, "CapsLock", VK_CAPITAL, "CapsLock"},
        {0x45, false, "Pause", VK_PAUSE, "Pause"},
        {0x45, true, "NumLock", VK_NUMLOCK, "NumLock"},
        {0x46, false, "ScrollLock", VK_SCROLL, "ScrollLock"},
        {0x37, false, "NumpadMultiply", VK_MULTIPLY, "*"},
        {0x35, true, "NumpadDivide", VK_DIVIDE, "/"},
        {0x37, true, "PrintScreen", VK_SNAPSHOT, "PrintScreen"},
        {0x4C, false, "Numpad5", VK_CLEAR, "Clear"},
        {0x47, true, "Home", VK_HOME, "Home"},
        {0x47, false, "Numpad7", VK_HOME, "Home"},
        {0x48, true, "ArrowUp", VK_UP, "ArrowUp"},
        {0x4B, true, "ArrowLeft", VK_LEFT, "ArrowLeft"},
        {0x4D, true, "ArrowRight", VK_RIGHT, "ArrowRight"},
        {0x50, true, "ArrowDown", VK_DOWN, "ArrowDown"},
        {0x49, true, "PageUp", VK_PRIOR, "PageUp"},
        {0x51, true, "PageDown", VK_NEXT, "PageDown"},
        {0x4F, true, "End", VK_END, "End"},
        {0x52, true, "Insert", VK_INSERT, "Insert"},
        {0x53, true, "Delete", VK_DELETE, "Delete"},
        {0x5B, true, "MetaLeft", VK_LWIN, "Meta"},
        {0x5D, true, "ContextMenu", VK_APPS, "ContextMenu"},
        {0x56, false, "IntlBackslash", VK_PROCESSKEY, "Process"},
        {0x7F, false, "", 0xFF, "Unidentified"},
        {0x7F, true, "", 0, "Unidentified"},
    };
    for (const auto& key : kKeys) {
        SCOPED_TRACE(key.code);
        EXPECT_EQ(KeyCodeName(key.scanCode, key.extended), key.code);
        EXPECT_EQ(KeyName(key.virtualKey, key.scanCode), key.key);
    }
    EXPECT_EQ(PlaceOfKey("ShiftRight"), KeyPlace::kRight);
    EXPECT_EQ(PlaceOfKey("MetaLeft"), KeyPlace::kLeft);
    EXPECT_EQ(PlaceOfKey("NumpadEnter"), KeyPlace::kKeypad);
    EXPECT_EQ(PlaceOfKey("ArrowLeft"), KeyPlace::kStandard);
}

// ---- Messages

class KeyMessages : public QueuedInput {
  protected:
    ~KeyMessages() override { Hold({}); }

    static void Hold(std::initializer_list<int> keys) {
        BYTE state[256] = {};
        for (const int key : keys)
            state[key] = 0x80;
        SetKeyboardState(state);
    }
    static LPARAM Key(UINT scanCode, bool extended = false) {
        return static_cast<LPARAM>(scanCode) << 16 | (extended ? 1 << 24 : 0) | 1;
    }

    // What a message sends to a page that sees everything; null if that is nothing.
    Json Send(UINT message, WPARAM wParam, LPARAM lParam = 1) {
        keyboard.HandleMessage(message, wParam, lParam);
        if (engine->commands.empty()) return nullptr;
        if (!std::exchange(begun_, true)) Begin();
        Json parameters = engine->commands.front().parameters;
        engine->Answer();
        Seen(++count_);
        return parameters;
    }

    KeyboardInput keyboard{nullptr, queue, side};

  private:
    double count_ = 1;
    bool begun_ = false;
};

TEST_F(KeyMessages, TellTheKeyAndItsPlace) {
    Hold({VK_SHIFT});
    const Json pressed = Send(WM_KEYDOWN, 'Q', Key(0x10));
    EXPECT_EQ(pressed["type"], "rawKeyDown");
    EXPECT_EQ(pressed["windowsVirtualKeyCode"], 'Q');
    EXPECT_EQ(pressed["key"], "Q");
    EXPECT_EQ(pressed["code"], "KeyQ");
    EXPECT_EQ(pressed["modifiers"], 8);
    EXPECT_EQ(pressed["autoRepeat"], false);
    EXPECT_EQ(Send(WM_KEYDOWN, 'Q', Key(0x10) | 1 << 30)["autoRepeat"], true);
    EXPECT_EQ(Send(WM_KEYUP, 'Q', Key(0x10) | 3u << 30)["type"], "keyUp");
    Hold({VK_CONTROL});
    EXPECT_EQ(Send(WM_KEYDOWN, 'A', Key(0x1E))["key"], "a") << "not a control character";
    Hold({VK_CONTROL, VK_MENU});
    EXPECT_EQ(Send(WM_KEYDOWN, 'A', Key(0x1E))["key"], "a") << "AltGr makes nothing else of it here";
    Hold({});
    EXPECT_EQ(Send(WM_KEYDOWN, VK_SHIFT, Key(0x36))["location"], 2);
    EXPECT_EQ(Send(WM_KEYDOWN, VK_LEFT, Key(0x4B))["isKeypad"], true);
    EXPECT_EQ(Send(WM_KEYDOWN, VK_LEFT, Key(0x4B, true))["isKeypad"], false);
}

TEST_F(KeyMessages, TheSystemsKeysGoToTheSystemToo) {
    for (const UINT message : {WM_SYSKEYDOWN, WM_SYSKEYUP}) {
        EXPECT_FALSE(keyboard.HandleMessage(message, VK_F4, Key(0x3E)));
    }
    EXPECT_FALSE(keyboard.HandleMessage(WM_SYSCHAR, L' ', Key(0x39)));
    EXPECT_FALSE(keyboard.HandleMessage(WM_MOUSEMOVE, 0, 0));
}

TEST_F(KeyMessages, CharactersAreText) {
    for (const wchar_t character : {L'a', L' ', L'\r', L'é', L'漢'}) {
        const Json sent = Send(WM_CHAR, character);
        EXPECT_EQ(sent["type"], "char");
        EXPECT_EQ(sent["text"], Narrow({&character, 1}));
    }
    // Tab, Escape, Backspace and the like act as keys; Ctrl+Backspace makes a character of its own.
    for (const wchar_t character : {L'\b', L'\t', L'\x1B', L'\x01', L'\x7F'})
        EXPECT_TRUE(Send(WM_CHAR, character).is_null()) << static_cast<int>(character);
}

TEST_F(KeyMessages, HalvesOfACharacterAreJoined) {
    const wchar_t whole[] = L"\U0001F600";
    EXPECT_TRUE(Send(WM_CHAR, whole[0]).is_null());
    EXPECT_EQ(Send(WM_CHAR, whole[1])["text"], Narrow(whole));
    EXPECT_TRUE(Send(WM_CHAR, whole[0]).is_null());
    EXPECT_EQ(Send(WM_CHAR, L'x')["text"], "x");
    EXPECT_NE(Send(WM_CHAR, whole[1])["text"], Narrow(whole)) << "its first half is over";
}

// With Ctrl and Alt the engine would take it for a command and type nothing.
TEST_F(KeyMessages, CharactersOfAltGrAreText) {
    Hold({VK_CONTROL, VK_MENU, VK_SHIFT});
    EXPECT_EQ(Send(WM_CHAR, L'€')["modifiers"], 8);
    Hold({VK_MENU});
    EXPECT_EQ(Send(WM_CHAR, L'a')["modifiers"], 1);
}

}  // namespace
}  // namespace tarvik
