// The dialogs that pages and script errors open, driven as a user would.

#include <algorithm>
#include <atomic>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/web_server.h"

namespace tarvik {
namespace {

constexpr int kBoxText = 0xFFFF;

class Dialogs : public ProgramTest {
  protected:
    // Waits for a dialog and presses a button of it.
    void Press(int button) {
        const HWND dialog = program_.Dialog();
        ASSERT_TRUE(dialog);
        EXPECT_TRUE(tarvik::Press(dialog, button));
    }

    // Expects the page to continue and to quit the program.
    void ExpectEnd(const std::vector<std::string>& lines) {
        EXPECT_EQ(program_.Wait(), 5u);
        EXPECT_EQ(program_.Lines(), lines);
    }
};

TEST_F(Dialogs, ReturnTheAnswerOfTheUser) {
    Open(
        "external.window.title = 'Owner'; alert(5); _alert('Hello \\u00e4\\n& goodbye');"
        "console.log('' + confirm('Really?')); console.log('' + confirm('Really not?'));"
        "console.log(prompt('Your name?', 'none')); console.log('' + prompt('Again?'));"
        "external.window.quit(5);");
    // For pages, alert is a message box of the plug-in `window` instead of the engine's.
    EXPECT_EQ(TextOf(program_.Dialog()), L"Owner");
    EXPECT_EQ(TextOf(program_.Dialog(), kBoxText), L"5");
    Press(IDOK);
    const HWND alert = program_.Dialog();
    ASSERT_TRUE(alert);
    EXPECT_EQ(TextOf(alert, kBoxText), L"Hello \u00e4\n& goodbye");
    EXPECT_EQ(GetWindow(alert, GW_OWNER), program_.WindowTitled(L"Owner"));
    Press(IDOK);
    EXPECT_EQ(TextOf(program_.Dialog(), kBoxText), L"Really?");
    Press(IDOK);
    Press(IDCANCEL);
    const HWND prompt = program_.Dialog();
    const HWND edit = FindWindowExW(prompt, nullptr, L"Edit", nullptr);
    ASSERT_TRUE(edit);
    EXPECT_EQ(TextOf(prompt, GetDlgCtrlID(edit)), L"none");
    EXPECT_THAT(program_.Lines(), ElementsAre("true", "false"));
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Some \"body\""));
    Press(IDOK);
    Press(IDCANCEL);
    ExpectEnd({"true", "false", "Some \"body\"", "null"});
}

TEST_F(Dialogs, ShowAllOfATextOrAScrollBar) {
    Open(
        "console.log('' + confirm('before\\0after')); prompt('1\\n2\\n3\\n4'); "
        "prompt('1\\n2\\n3\\n4\\n5\\0!');"
        "external.window.quit(5);");
    EXPECT_EQ(TextOf(program_.Dialog(), kBoxText), L"before after");
    Press(IDOK);
    for (const bool isLong : {false, true}) {
        const HWND prompt = program_.Dialog();
        const HWND edit = FindWindowExW(prompt, nullptr, L"Edit", nullptr);
        const HWND message = FindWindowExW(prompt, edit, L"Edit", nullptr);
        ASSERT_TRUE(message);
        EXPECT_EQ(TextOf(message), isLong ? L"1\r\n2\r\n3\r\n4\r\n5 !" : L"1\r\n2\r\n3\r\n4");
        EXPECT_EQ((GetWindowLongPtrW(message, GWL_STYLE) & WS_VSCROLL) != 0, isLong);
        Press(IDOK);
    }
    ExpectEnd({"true"});
}

// As in the browser, only after the user has used the page. A frame may ask, too.
TEST_F(Dialogs, AskBeforeTheUserClosesAPageThatWantsIt) {
    Write(L"frame.html", "window.onbeforeunload = function () { return parent.asks ? 'ask' : undefined; };");
    Open(
        "var w = external.window, asks = true; w.title = 'Unsaved'; w.setWindowPos(200, 150, 400, 300);"
        "w.onClose = function () { console.log('closing'); };"
        "w.onClosed = function () { console.log('closed'); w.quit(5); };"
        "document.onmouseup = function () { console.log('clicked'); };"
        "var frame = document.createElement('iframe'); frame.src = 'frame.html'; frame.hidden = true;"
        "frame.onload = function () { w.show(true); }; document.body.appendChild(frame);");
    ClickPage(L"Unsaved");
    const HWND window = program_.WindowTitled(L"Unsaved");
    for (const int answer : {IDCANCEL, IDOK}) {
        PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        const HWND dialog = program_.Dialog();
        EXPECT_THAT(TextOf(dialog, kBoxText), testing::StartsWith(L"Leave this page?"));
        EXPECT_TRUE(tarvik::Press(dialog, answer));
        EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
    }
    ExpectEnd({"clicked", "closing", "closing", "closed"});
}

// Nothing asks: neither a page without a request, nor one that does not respond.
TEST_F(Dialogs, DoNotAskBeforeOtherPagesAreClosed) {
    Write(L"loop.html", "console.log('loop'); for (;;);");
    Open(
        "var w = external.window; createWindow({url: 'loop.html'});"
        "window.onbeforeunload = function () { console.log('asked'); };"
        "w.title = 'Quiet'; w.onClosed = function () { console.log('closed'); w.quit(5); }");
    ASSERT_TRUE(program_.WaitForLine("loop"));
    const HWND quiet = program_.WindowTitled(L"Quiet");
    for (const HWND window : program_.Windows()) {
        if (window == quiet) continue;
        PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        EXPECT_TRUE(WaitFor([&] { return !IsWindow(window); }));
    }
    PostMessageW(quiet, WM_SYSCOMMAND, SC_CLOSE, 0);
    ExpectEnd({"loop", "asked", "closed"});
}

// Once for requests that wait together; a wrong password asks again.
TEST_F(Dialogs, AskForThePasswordOfASite) {
    std::atomic<int> refusals = 0;
    const WebServer server([&](const WebExchange& exchange) {
        const bool isKnown = exchange.Head().find("Authorization: Basic bWU6cGFzcw==") != std::string::npos;
        const std::string path = exchange.Path();
        if (path == "/start")
            exchange.Respond(
                "<script>Promise.all([fetch('one'), fetch('two')]).then(function (answers) {"
                "  console.log('fetched ' + answers[0].status + ' ' + answers[1].status);"
                "  location.href = 'page'; });</script>");
        else if (isKnown)
            exchange.Respond("<script>console.log('welcome'); external.window.quit(5);</script>");
        else
            exchange.Respond(
                path == "/page" ? "<script>console.log('refused'); location.reload();</script>" : "",
                "401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"Garden\"");
        refusals += path == "/one" || path == "/two";
    });
    const auto enter = [&](const wchar_t* realm, const wchar_t* password) {
        const HWND dialog = program_.Dialog();
        ASSERT_TRUE(dialog);
        EXPECT_THAT(TextOf(GetWindow(dialog, GW_CHILD)), testing::HasSubstr(realm));
        const HWND user = FindWindowExW(dialog, nullptr, L"Edit", nullptr);
        SendMessageW(user, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"me"));
        SendMessageW(FindWindowExW(dialog, user, L"Edit", nullptr), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(password));
        EXPECT_TRUE(tarvik::Press(dialog, IDOK));
        EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
    };
    program_.Start(L"-f " + server.Url(L"start"));
    EXPECT_TRUE(WaitFor([&] { return refusals == 2; }));
    Press(IDCANCEL);
    ASSERT_TRUE(program_.WaitForLine("fetched 401 401"));
    Press(IDCANCEL);
    ASSERT_TRUE(program_.WaitForLine("refused"));
    enter(L"127.0.0.1", L"wrong");
    enter(L"Garden", L"pass");
    ExpectEnd({"fetched 401 401", "refused", "welcome"});
}

TEST_F(Dialogs, NoStopsTheScriptsOfThePage) {
    Write(L"other.html", "setInterval(function () { console.log('other'); }, 20);");
    Open(
        "createWindow({url: 'other.html'}); setInterval(function () { console.log('tick'); }, 20);"
        "undefinedName();");
    ASSERT_TRUE(program_.WaitForLine("tick"));
    Press(IDNO);
    // Pending ticks are still logged, but then only the other page logs.
    EXPECT_TRUE(WaitFor([&] {
        const auto lines = program_.Lines();
        return std::ranges::find(lines.rbegin(), lines.rend(), "tick") - lines.rbegin() > 20;
    }));
    EXPECT_EQ(program_.Windows().size(), 2u);
}

// Errors are shown one after the other, while scripts continue to run, except those of a time when the page
// has disabled them.
TEST_F(Dialogs, ShowEveryError) {
    // By the time that an operation completes, the host has handled the first error.
    Open(
        "console.showJsError = false; setTimeout(function () { silent(); });"
        "setTimeout(function () { external.file.enumFiles({ path: 'resource', callback: function () {},"
        "completed: function () { console.showJsError = true; setTimeout(function () { missing(); });\n\n"
        "setTimeout(function () { external.window.show('now'); }); setTimeout(function () { throw 'text'; });"
        "setTimeout(function () { console.log('later'); }); } }); });");
    ASSERT_TRUE(program_.WaitForLine("later"));
    for (const auto& [message, line] :
         {std::pair(L"missing is not defined", L"Line:\t1"), std::pair(L"(0x80070057)", L"Line:\t3"),
          std::pair(L"text", L"Line:\t3")}) {
        const std::wstring text = TextOf(program_.Dialog(), kBoxText);
        for (const wchar_t* part : {message, line, L"index.html"})
            EXPECT_NE(text.find(part), std::wstring::npos) << Narrow(text);
        Press(IDYES);
    }
}

// An operation must not wait for the user if its callback fails. The callback here also blocks the page so
// long that the host pumps all messages meanwhile.
TEST_F(Dialogs, DoNotBlockOperations) {
    Open(
        "document.addEventListener('fail', function () { missing(); });"
        "external.file.enumFiles({ path: 'resource', callback: function () {"
        "document.dispatchEvent(new CustomEvent('fail'));"
        "for (var end = Date.now() + 2500; Date.now() < end;) external.window.isVisible();"
        "}, completed: function () { console.log('completed'); } });");
    ASSERT_TRUE(program_.Dialog());
    EXPECT_TRUE(program_.WaitForLine("completed"));
    Press(IDYES);
}

TEST_F(Dialogs, DoNotBlockOtherWindowsAndCloseWithTheirOwn) {
    Write(L"child.html",
          "var n = 0; setInterval(function () {"
          "external.window.title = 'child ' + ++n; if (n === 20) console.log('twenty'); }, 20)");
    Open(
        "external.window.title = 'Owner';"
        "createWindow({url: 'child.html'}); _alert('stop'); console.log('after');");
    ASSERT_TRUE(program_.Dialog());
    EXPECT_TRUE(program_.WaitForLine("twenty"));
    EXPECT_TRUE(program_.Dialog());
    EXPECT_TRUE(Close(program_.WindowTitled(L"Owner")));
    EXPECT_EQ(program_.Quit(3), 3u);
    EXPECT_THAT(program_.Lines(), ElementsAre("twenty"));
}

}  // namespace
}  // namespace tarvik
