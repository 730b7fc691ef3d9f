// What the messages of keyboard and mouse become.

#include "control/view/click_counter.h"
#include "control/view/key_names.h"
#include "control/view/keyboard_input.h"
#include "control/view/mouse_input.h"
#include "tests/control/view/input_fixture.h"

namespace tarvik {
namespace {

TEST(KeyNames, TellKeysOfOneScanCodeAndOfOneMeaningApart) {
    struct {
        UINT scanCode;
        bool extended;
        const char* code;
        KeyPlace place;
        UINT virtualKey;
        const char* key;
    } const kKeys[] = {
        {0x1C, false, "Enter", KeyPlace::kStandard, VK_RETURN, "Enter"},
        {0x1C, true, "NumpadEnter", KeyPlace::kKeypad, VK_RETURN, "Enter"},
        {0x36, false, "ShiftRight", KeyPlace::kRight, VK_SHIFT, "Shift"},
        {0x5B, true, "MetaLeft", KeyPlace::kLeft, VK_LWIN, "Meta"},
        {0x45, false, "Pause", KeyPlace::kStandard, VK_PAUSE, "Pause"},
        {0x45, true, "NumLock", KeyPlace::kStandard, VK_NUMLOCK, "NumLock"},
        {0x35, true, "NumpadDivide", KeyPlace::kKeypad, VK_DIVIDE, "/"},
        {0x47, false, "Numpad7", KeyPlace::kKeypad, VK_HOME, "Home"},
        {0x47, true, "Home", KeyPlace::kStandard, VK_HOME, "Home"},
        {0x7F, true, "", KeyPlace::kStandard, 0, "Unidentified"},
    };
    for (const auto& key : kKeys) {
        SCOPED_TRACE(key.code);
        EXPECT_EQ(KeyCodeName(key.scanCode, key.extended), key.code);
        EXPECT_EQ(PlaceOfKey(key.code), key.place);
        EXPECT_EQ(KeyName(key.virtualKey, key.scanCode), key.key);
    }
}

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
    Json Send(UINT message, WPARAM wParam, LPARAM lParam = 1) {
        keyboard.HandleMessage(message, wParam, lParam);
        return Sent();
    }

    KeyboardInput keyboard{nullptr, queue, side};
};

TEST_F(KeyMessages, TellWhatIsHeldAndRepeated) {
    EXPECT_EQ(Send(WM_KEYDOWN, 'Q', Key(0x10))["autoRepeat"], false);
    EXPECT_EQ(Send(WM_KEYDOWN, 'Q', Key(0x10) | 1 << 30)["autoRepeat"], true);
    EXPECT_EQ(Send(WM_KEYUP, 'Q', Key(0x10) | 3u << 30)["type"], "keyUp");
    Hold({VK_CONTROL});
    EXPECT_EQ(Send(WM_KEYDOWN, 'A', Key(0x1E))["key"], "a") << "not a control character";
    Hold({VK_CONTROL, VK_MENU});
    EXPECT_EQ(Send(WM_KEYDOWN, 'A', Key(0x1E))["key"], "a") << "AltGr makes nothing else of it here";
    EXPECT_EQ(Send(WM_KEYDOWN, VK_LEFT, Key(0x4B))["isKeypad"], true);
    EXPECT_FALSE(keyboard.HandleMessage(WM_SYSKEYDOWN, VK_F4, Key(0x3E))) << "the system wants it too";
}

// Tab, Escape, Backspace and the like act as keys; Ctrl+Backspace makes a character of its own.
TEST_F(KeyMessages, CharactersOfKeysAndHalvesAreNoText) {
    for (const wchar_t character : {L'\b', L'\t', L'\x1B', L'\x7F', L'\xD83D'})
        EXPECT_TRUE(Send(WM_CHAR, character).is_null()) << static_cast<int>(character);
    EXPECT_EQ(Send(WM_CHAR, L'\r')["text"], "\r") << "and the half is over";
}

// With Ctrl and Alt the engine would take it for a command and type nothing.
TEST_F(KeyMessages, CharactersOfAltGrAreText) {
    Hold({VK_CONTROL, VK_MENU, VK_SHIFT});
    EXPECT_EQ(Send(WM_CHAR, L'€')["modifiers"], 8);
    Hold({VK_MENU});
    EXPECT_EQ(Send(WM_CHAR, L'a')["modifiers"], 1);
}

LPARAM At(int x, int y) {
    return MAKELPARAM(x, y);
}

TEST(ClickCounter, GoesByButtonTimeAndPlace) {
    const DWORD soon = GetDoubleClickTime() / 2;
    const DWORD late = GetDoubleClickTime() + 1;
    const int away = GetSystemMetrics(SM_CXDOUBLECLK) / 2 + 1;
    struct {
        const char* what;
        int button;
        POINT point;
        DWORD wait;
        int count;
    } const kPresses[] = {
        {"the first", 1, {10, 10}, 0, 1},
        {"in time", 1, {11, 9}, soon, 2},
        {"a third", 1, {11, 9}, soon, 3},
        {"too late", 1, {11, 9}, late, 1},
        {"too far", 1, {11 + away, 9}, soon, 1},
        {"another button", 2, {11 + away, 9}, soon, 1},
        {"the clock starts anew", 2, {11, 9}, 0, 1},
    };
    ClickCounter clicks;
    DWORD time = 0xFFFFFF00;  // it does so every 49 days
    for (const auto& press : kPresses) {
        time += press.wait;
        EXPECT_EQ(clicks.Press(press.button, press.point, time), press.count) << press.what;
        EXPECT_EQ(clicks.Last(), press.count);
    }
}

class MouseMessages : public QueuedInput {
  protected:
    Json Send(UINT message, WPARAM wParam, LPARAM lParam) {
        EXPECT_TRUE(mouse.HandleMessage(message, wParam, lParam));
        return Sent();
    }

    const UniqueWindow window{CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 40, 30, 200, 100, nullptr, nullptr,
                                              GetModuleHandleW(nullptr), nullptr)};
    MouseInput mouse{window.Get(), queue};
};

TEST_F(MouseMessages, NameTheirButtons) {
    struct {
        UINT down;
        WPARAM which;
        const char* name;
        int bit;
    } const kButtons[] = {
        {WM_RBUTTONDOWN, 0, "right", 2},
        {WM_MBUTTONDOWN, 0, "middle", 4},
        {WM_XBUTTONDOWN, MAKEWPARAM(0, XBUTTON1), "back", 8},
        {WM_XBUTTONDOWN, MAKEWPARAM(0, XBUTTON2), "forward", 16},
    };
    for (const auto& button : kButtons) {
        SCOPED_TRACE(button.name);
        for (const UINT press : {button.down, button.down + 2}) {
            const Json pressed = Send(press, button.which, At(7, 9));
            EXPECT_EQ(pressed["button"], button.name);
            EXPECT_EQ(pressed["buttons"], button.bit);
            const Json released = Send(button.down + 1, button.which, At(8, 9));
            EXPECT_EQ(released["button"], button.name);
            EXPECT_EQ(released["buttons"], 0);
            EXPECT_EQ(released["clickCount"], pressed["clickCount"]);
        }
    }
}

TEST_F(MouseMessages, KeepThePointerWhileAButtonIsHeld) {
    Send(WM_LBUTTONDOWN, 0, At(5, 5));
    Send(WM_RBUTTONDOWN, 0, At(5, 5));
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, At(-20, 300))["button"], "left");
    EXPECT_EQ(mouse.LastPoint().x, -20);
    Send(WM_LBUTTONUP, 0, At(-20, 300));
    EXPECT_EQ(GetCapture(), window.Get());
    EXPECT_EQ(Send(WM_MOUSELEAVE, 0, 0), nullptr);
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, At(-21, 300))["button"], "right");
    Send(WM_RBUTTONUP, 0, At(-21, 300));
    EXPECT_FALSE(GetCapture());
    EXPECT_EQ(Send(WM_MOUSELEAVE, 0, 0).value("x", 0), -1);
}

}  // namespace
}  // namespace tarvik
