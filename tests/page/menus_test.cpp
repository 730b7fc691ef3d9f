// Menus and the icon in the notification area, used with mouse and keyboard.

#include <algorithm>

#include "tests/page/program.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

class Menus : public ProgramTest {
  protected:
    // Opens a visible page with a helper: menu(type, items) creates a menu. An item is a name, which is
    // logged when it is chosen, or the options of appendMenu.
    void OpenPage(const std::string& script) {
        Open(
            "var w = external.window; w.title = 'Menus'; w.setWindowPos(100, 80, 500, 400);"
            "function say(text) { console.log('chosen: ' + text); }"
            "function menu(type, items) { var m = external.menu.createMenu(type);"
            "  items.forEach(function (item) {"
            "    if (typeof item === 'string') m.appendMenu({ name: item, callback: say, context: item });"
            "    else m.appendMenu(item); });"
            "  return m; }"
            "function popup(m, x, y) { setTimeout(function () { console.log('opened: ' + m.popup(x, y)); }, "
            "0); }"
            "w.show(true); window.onload = function () {" +
            script + "console.log('ready'); };");
        window_ = program_.WindowTitled(L"Menus");
        ASSERT_TRUE(window_);
        ASSERT_TRUE(program_.WaitForLine("ready"));
        ASSERT_TRUE(WaitForColour(InnermostWindow(window_), kBlue));
    }

    std::vector<HWND> OpenMenus() const {
        std::vector<HWND> menus = program_.Windows(L"#32768");
        std::erase_if(menus, [](HWND menu) { return !IsWindowVisible(menu); });
        return menus;
    }
    bool WaitForMenus(size_t count) const {
        return WaitFor([&] { return OpenMenus().size() == count; });
    }
    void Keys(std::initializer_list<WORD> keys) const {
        for (const WORD key : keys)
            PressKeys({key});
    }
    std::vector<std::string> Chosen() const {
        std::vector<std::string> lines = program_.Lines();
        std::erase(lines, "ready");
        return lines;
    }

    HWND window_ = nullptr;
};

TEST_F(Menus, CallTheFunctionOfTheChosenItem) {
    OpenPage(
        "var inner = menu('popupMenu', ['three', 'four']);"
        "popup(menu('popupMenu', ['one', { name: 'off' }, { name: 'more', subMenu: inner }]), 30, 40);");
    ASSERT_TRUE(WaitForMenus(1));
    RECT place = {};
    GetWindowRect(OpenMenus()[0], &place);
    POINT expected = {30, 40};
    ClientToScreen(InnermostWindow(window_), &expected);
    EXPECT_EQ(place.left, expected.x);
    EXPECT_EQ(place.top, expected.y);
    Keys({VK_UP, VK_RIGHT});
    ASSERT_TRUE(WaitForMenus(2));
    Keys({VK_DOWN, VK_RETURN});
    ASSERT_TRUE(program_.WaitForLine("opened: true"));
    EXPECT_THAT(Chosen(), ElementsAre("chosen: four", "opened: true"));
    EXPECT_TRUE(OpenMenus().empty());
}

TEST_F(Menus, WorkInAMenuBar) {
    OpenPage(
        "var file = menu('popupMenu', ['Open', 'Close']), bar = menu('windowMenu', ["
        "  { name: '&File', subMenu: file }, { name: '&Help', callback: say, context: 'Help' }]);"
        "w.menu = bar; say(w.menu.getSubMenu('&file').getItemCount()); say(bar.popup());");
    // Chooses one item of the bar with the mouse and another by its letter.
    POINT item = {12, -10};
    ClientToScreen(InnermostWindow(window_), &item);
    ClickAt(item);
    ASSERT_TRUE(WaitForMenus(1));
    Keys({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_TRUE(program_.WaitForLine("chosen: Close"));
    Click(InnermostWindow(window_));
    INPUT alt = {};
    alt.type = INPUT_KEYBOARD;
    alt.ki.wVk = VK_MENU;
    SendInput(1, &alt, sizeof alt);
    Keys({'H'});
    alt.ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(1, &alt, sizeof alt);
    EXPECT_TRUE(program_.WaitForLine("chosen: Help"));
    EXPECT_THAT(Chosen(), ElementsAre("chosen: 2", "chosen: false", "chosen: Close", "chosen: Help"));
}

TEST_F(Menus, CloseWithTheirWindow) {
    OpenPage("w.onClosed = function () { w.quit(7); }; popup(menu('popupMenu', ['one']), 30, 40);");
    ASSERT_TRUE(WaitForMenus(1));
    PostMessageW(window_, WM_CLOSE, 0, 0);
    EXPECT_EQ(program_.Wait(), 7u);
}

// The icon is the last one in the task bar of Wine's desktop.
TEST_F(Menus, OpenFromATrayIcon) {
    OpenPage(
        "var t = external.tray, m = menu('trayMenu', ['one', 'two']);"
        "t.onClick = function () { say('click'); }; t.onDbClick = function () { say('twice'); };"
        "t.onRClick = function () { say('right ' + m.popup()); }; t.addTray('Tip');");
    RECT bar = {};
    const HWND tray = FindWindowW(L"Shell_TrayWnd", nullptr);
    ASSERT_TRUE(tray);
    GetWindowRect(tray, &bar);
    const POINT icon = {bar.right - 12, (bar.top + bar.bottom) / 2};
    const auto until = [&](std::string_view line, const std::function<void()>& act) {
        return WaitFor([&] {
            act();
            return WaitFor([&] { return program_.HasLine(line); }, 2000);
        });
    };
    EXPECT_TRUE(until("chosen: click", [&] { ClickAt(icon); }));
    EXPECT_TRUE(until("chosen: twice", [&] { ClickAt(icon, MOUSEEVENTF_LEFTDOWN, 2); }));
    ClickAt(icon, MOUSEEVENTF_RIGHTDOWN);
    ASSERT_TRUE(WaitForMenus(1));
    Keys({VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_TRUE(program_.WaitForLine("chosen: right true"));
    EXPECT_THAT(Chosen(), testing::Contains("chosen: two"));
}

}  // namespace
}  // namespace tarvik
