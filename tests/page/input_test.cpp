// Keyboard and mouse input: from the user to pages and plug-ins, and from the plug-in `mouse`.

#include "tests/page/program.h"
#include "tests/support/screen.h"

namespace tarvik {
namespace {

class Input : public ProgramTest {
  protected:
    // Opens a page that logs its keys, except modifiers, and clicks it, so that it has the focus.
    void OpenForKeys(const std::string& script = "") {
        Open(
            "var w = external.window; w.title = 'Keys'; w.setWindowPos(200, 150, 400, 300); w.show(true);"
            "document.onkeydown = function (e) { if (e.keyCode < 16 || e.keyCode > 18)"
            "  console.log('key ' + e.keyCode + (e.ctrlKey ? ' Ctrl' : '') + (e.altKey ? ' Alt' : '')); };"
            "document.onmouseup = function () { console.log('clicked'); };" +
            script);
        ClickPage(L"Keys");
    }
};

TEST_F(Input, HotKeysReachHiddenWindows) {
    Open(
        "var keys = external.hotkey;"
        "function end() { console.log('end'); external.window.quit(7); }"
        "function press(context) { keys.clear('ctrl+alt+f9'); keys.set('f7', end);"
        "  console.log('pressed ' + context.n); }"
        "console.log('set ' + keys.set('ctrl+alt+F9', press, {n: 3}) + keys.set('ctrl+alt+f9', press));");
    ASSERT_TRUE(program_.WaitForLine("set truefalse"));
    PressKeys({VK_CONTROL, VK_MENU, VK_F9});
    ASSERT_TRUE(program_.WaitForLine("pressed 3"));
    PressKeys({VK_CONTROL, VK_MENU, VK_F9});
    PressKeys({VK_F7});
    EXPECT_EQ(program_.Wait(), 7u);
    EXPECT_THAT(program_.Lines(), ElementsAre("set truefalse", "pressed 3", "end"));
}

// The hot key starts the page once it is on the screen. The test moves the pointer, because under Wine a
// click may go where the pointer was before a program moved it.
TEST_F(Input, MousePluginClicksThePage) {
    Open(
        "var w = external.window, mouse = external.mouse; w.title = 'Mouse'; w.caption = false;"
        "w.setWindowPos(200, 150, 400, 300); w.show(true);"
        "function log(e) { console.log(e.type + ' ' + e.button + ' at ' + e.clientX + ', ' + e.clientY);"
        "  if (e.type == 'mouseup') setTimeout(next, 0); }"
        "document.onmousedown = log; document.onmouseup = log;"
        "function click(button) { console.log('click ' + mouse.click(button, 5, 5)); }"
        "function hold() { document.onmouseup = null; document.onmousedown = function () {"
        "    console.log('held ' + mouse.isBtnDown() + mouse.isBtnDown(mouse.RBTN)); w.quit(7); };"
        "  console.log('hold'); }"
        "var buttons = [7, 1, mouse.MBTN];"
        "function next() { if (buttons.length) click(buttons.shift()); else hold(); }"
        "console.log('set ' + external.hotkey.set('f7', next));");
    ASSERT_TRUE(program_.WaitForLine("set true"));
    ASSERT_TRUE(WaitForColour(program_.WindowTitled(L"Mouse"), kBlue));
    MovePointer({300, 200});
    PressKeys({VK_F7});
    EXPECT_TRUE(program_.WaitForLine("hold"));
    Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
    EXPECT_TRUE(program_.WaitForLine("held truefalse"));
    Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
    EXPECT_EQ(program_.Wait(), 7u);
    EXPECT_THAT(program_.Lines(),
                ElementsAre("set true", "click true", "mousedown 0 at 100, 50", "mouseup 0 at 100, 50",
                            "click true", "mousedown 2 at 100, 50", "mouseup 2 at 100, 50", "click true",
                            "mousedown 1 at 100, 50", "mouseup 1 at 100, 50", "hold", "held truefalse"));
}

// The host swallows Ctrl+M and Ctrl+0, but not characters typed with AltGr, which is Ctrl and Alt.
TEST_F(Input, AltGrReachesThePage) {
    OpenForKeys();
    PressKeys({VK_LCONTROL, 'M'});
    PressKeys({VK_LCONTROL, VK_RMENU, 'M'});
    PressKeys({VK_LCONTROL, VK_RMENU, '0'});
    PressKeys({VK_LCONTROL, '0'});
    PressKeys({'A'});
    ASSERT_TRUE(program_.WaitForLine("key 65"));
    EXPECT_THAT(program_.Lines(), ElementsAre("clicked", "key 77 Ctrl Alt", "key 48 Ctrl Alt", "key 65"));
}

// While a busy page blocks a native call, the host pumps messages in a nested loop.
TEST_F(Input, IsFilteredWhileThePageIsBusy) {
    OpenForKeys(
        "external.hotkey.set('f7', function () { console.log('busy');"
        "  for (var end = Date.now() + 4000; Date.now() < end;); console.log('free'); });");
    PressKeys({VK_F7});
    ASSERT_TRUE(program_.WaitForLine("busy"));
    PressKeys({VK_F5});
    PressKeys({'A'});
    ASSERT_TRUE(program_.WaitForLine("key 65"));
    EXPECT_THAT(program_.Lines(), ElementsAre("clicked", "busy", "free", "key 65"));
}

}  // namespace
}  // namespace tarvik
