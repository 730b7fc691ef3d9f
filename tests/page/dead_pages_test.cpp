// Pages that show nothing or do not respond: what the window says, and the end of the program.

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr const char* kNoScript = "The page of the last window could not run script, so the program ends.";
constexpr const char* kEndedByUser = "The user has ended the program, because a page did not respond.";

class DeadPages : public ProgramTest {
  protected:
    // A window whose page runs this script at a click.
    HWND OpenWindow(const std::string& onClick, const std::string& script = "") {
        Open("var win = external.window; win.title = 'Page'; win.show(true);" + script +
             "document.onclick = function () {" + onClick + "};");
        const HWND window = program_.WindowTitled(L"Page");
        EXPECT_TRUE(WaitForColour(InnermostWindow(window), kBlue));
        return window;
    }
    HWND ClickWindow(const std::string& onClick, const std::string& script = "") {
        const HWND window = OpenWindow(onClick, script);
        Click(InnermostWindow(window));
        return window;
    }

    static void CloseByUser(HWND window) { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); }

    // Closes the last window.
    void ExpectEnd(HWND window) {
        SetForegroundWindow(window);
        PressKeys({VK_MENU, VK_F4});
        EXPECT_EQ(program_.Wait(), 1u);
        EXPECT_TRUE(program_.HasLine(kNoScript));
    }
};

TEST_F(DeadPages, LetTheUserWaitForALoopOrStopIt) {
    const HWND window = ClickWindow(
        "setTimeout(function () { var end = Date.now() + 14000;"
        "while (Date.now() < end); console.log('over'); }); document.onclick ="
        "function () { for (;;); };");
    const HWND page = InnermostWindow(window);
    ASSERT_TRUE(ShowsNotice(window, "does not respond"));
    ClickNotice(window);  // wait
    ASSERT_TRUE(program_.WaitForLine("over"));
    EXPECT_TRUE(WaitForColour(page, kBlue));
    Click(page);
    ASSERT_TRUE(ShowsNotice(window, "does not respond"));
    PressKeys({VK_TAB});
    PressKeys({VK_SPACE});  // stop the page
    ASSERT_TRUE(ShowsNotice(window, "stopped this page"));
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitForColour(page, kBlue));
    EXPECT_EQ(program_.Lines().size(), 1u);
}

// The question disappears when the page responds again.
TEST_F(DeadPages, AskNothingMoreOnceTheyRespond) {
    const HWND window = ClickWindow("var end = Date.now() + 17000; while (Date.now() < end);");
    ASSERT_TRUE(ShowsNotice(window, "does not respond"));
    EXPECT_TRUE(WaitFor([&] { return TextOf(InnermostWindow(window)).empty(); }));
    EXPECT_TRUE(WaitForColour(InnermostWindow(window), kBlue));
}

TEST_F(DeadPages, LetTheUserEndTheProgram) {
    Write(L"other.html", "");
    const HWND window = ClickWindow("for (;;);", "createWindow({url: 'other.html'});");
    ASSERT_TRUE(ShowsNotice(window, "does not respond"));
    PressKeys({VK_LEFT});  // the last button
    PressKeys({VK_SPACE});
    EXPECT_EQ(program_.Wait(), 1u);
    EXPECT_TRUE(program_.HasLine(kEndedByUser));
}

// Handlers of a page that does not respond do not hold up the end of its window; those of others still run.
TEST_F(DeadPages, CanBeClosedInALoop) {
    Write(L"loop.html",
          "external.window.onClose = function () {};"
          "external.window.show(true); console.log('loop'); for (;;);");
    const HWND window =
        OpenWindow("",
                   "win.onClose = win.onClosed = function () {}; if (typeof windowContext === 'undefined') {"
                   "var child = createWindow({url: 'loop.html', context: 1});"
                   "child.title = 'Loop'; child.onClosed = function () { console.log('closed'); }; }");
    ASSERT_TRUE(program_.WaitForLine("loop"));
    CloseByUser(program_.WindowTitled(L"Loop"));  // before the question
    EXPECT_TRUE(program_.WaitForLine("closed"));
    EXPECT_TRUE(WaitFor([&] { return program_.Windows().size() == 1; }));
    EXPECT_TRUE(program_.IsRunning());
    EXPECT_TRUE(Close(window));
    EXPECT_FALSE(WaitFor([&] { return !program_.IsRunning(); }, 500)) << "a living page ends nothing";
}

TEST_F(DeadPages, EndTheProgramWithTheLastWindow) {
    const HWND window = ClickWindow(
        "for (;;);", "win.onClose = win.onClosed = win.onInactivate = function () { win.quit(7); };");
    ASSERT_TRUE(ShowsNotice(window, "does not respond"));
    ExpectEnd(window);
}

// Neither while a page waits in a native call nor while it asks whether to leave it.
TEST_F(DeadPages, AskNothingWhileADialogIsOpen) {
    const HWND window = ClickWindow("console.log('clicked'); alert('native');",
                                    "window.onbeforeunload = function () { return 'ask'; };");
    const HWND dialog = program_.Dialog();
    ASSERT_TRUE(dialog);
    EXPECT_FALSE(WaitFor([&] { return TextOf(InnermostWindow(window)) != L""; }, 14'000));
    EXPECT_TRUE(Press(dialog, IDOK));
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
    CloseByUser(window);
    const HWND question = program_.Dialog();
    ASSERT_TRUE(question);
    EXPECT_FALSE(WaitFor([&] { return TextOf(InnermostWindow(window)) != L""; }, 14'000));
    EXPECT_TRUE(Press(question, IDCANCEL));
}

// The old document's handlers are gone, and the new one waits for its first script.
TEST_F(DeadPages, EndTheProgramWithAPageThatIsBeingReplaced) {
    const WebServer server([](const WebExchange& exchange) {
        while (exchange.Send(" "))
            Sleep(50);
    });
    program_.Folder().Write(L"work\\resource\\next.html",
                            "<!doctype html><script src='" + Narrow(server.Url()) + "'></script>");
    const HWND window =
        ClickWindow("location = 'next.html';", "win.onClosed = function () { win.quit(7); };");
    ASSERT_TRUE(WaitFor([&] { return server.Connections() > 0; }));
    ExpectEnd(window);
}

TEST_F(DeadPages, LoadABlankPageAgain) {
    const HWND window = ClickWindow("location = 'about:blank';");
    ASSERT_TRUE(ShowsNotice(window, "page is blank"));
    ClickNotice(window);
    EXPECT_TRUE(WaitForColour(InnermostWindow(window), kBlue));
    Click(InnermostWindow(window));
    ASSERT_TRUE(ShowsNotice(window, "page is blank"));
    ExpectEnd(window);
}

TEST_F(DeadPages, LoadAMissingPageAgain) {
    const HWND window = ClickWindow("location = 'later.html';");
    ASSERT_TRUE(ShowsNotice(window, "later.html"));
    Write(L"later.html", "console.log('loaded');");
    ClickNotice(window);
    EXPECT_TRUE(program_.WaitForLine("loaded"));
    EXPECT_TRUE(WaitForColour(InnermostWindow(window), kBlue));
}

TEST_F(DeadPages, EndTheProgramAfterACrash) {
    program_.Start(L"-f chrome://crash");
    HWND window = nullptr;
    ASSERT_TRUE(WaitFor([&] {
        for (const HWND each : program_.Windows())
            window = each;
        return window && IsWindowVisible(window);
    }));
    ASSERT_TRUE(ShowsNotice(window, "stopped working"));
    ExpectEnd(window);
}

}  // namespace
}  // namespace tarvik
