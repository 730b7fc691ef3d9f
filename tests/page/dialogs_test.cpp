// The dialogs that pages and script errors open, driven as a user would.

#include <algorithm>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"

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
        "external.window.title = 'Owner'; _alert('Hello \\u00e4\\n& goodbye');"
        "console.log('' + confirm('Really?')); console.log('' + confirm('Really not?'));"
        "console.log(prompt('Your name?', 'none')); console.log('' + prompt('Again?'));"
        "external.window.quit(5);");
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

// For pages, alert is a message box of the plug-in `window` instead of the engine's.
TEST_F(Dialogs, AlertHasTheTitleOfItsWindow) {
    Open(
        "external.window.title = 'Owner'; alert('x'); alert(5, 'error', 'Other');"
        "console.log('after'); external.window.quit(5);");
    const HWND first = program_.Dialog();
    EXPECT_EQ(TextOf(first, kBoxText), L"x");
    EXPECT_EQ(Program::TextOf(first), L"Owner");
    EXPECT_EQ(GetWindow(first, GW_OWNER), program_.WindowTitled(L"Owner"));
    Press(IDOK);
    EXPECT_EQ(Program::TextOf(program_.Dialog()), L"Other");
    EXPECT_EQ(TextOf(program_.Dialog(), kBoxText), L"5");
    Press(IDOK);
    ExpectEnd({"after"});
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

// Errors are shown one after the other, while scripts continue to run.
TEST_F(Dialogs, ShowEveryError) {
    Open(
        "setTimeout(function () { missing1(); }); setTimeout(function () { missing2(); });"
        "setTimeout(function () { console.log('later'); }, 50);\n\nmissing0();");
    ASSERT_TRUE(program_.WaitForLine("later"));
    for (const wchar_t* name : {L"missing0", L"missing1", L"missing2"}) {
        const std::wstring text = TextOf(program_.Dialog(), kBoxText);
        EXPECT_NE(text.find(std::wstring(name) + L" is not defined"), std::wstring::npos);
        EXPECT_NE(text.find(name[7] == L'0' ? L"Line:\t3" : L"Line:\t1"), std::wstring::npos);
        EXPECT_NE(text.find(L"index.html"), std::wstring::npos);
        Press(IDYES);
    }
}

TEST_F(Dialogs, ShowNoErrorsIfThePageDisablesThem) {
    Open(
        "console.showJsError = false; setTimeout(function () { console.showJsError = true; loud(); }, 500);"
        "silent();");
    const std::wstring text = TextOf(program_.Dialog(), kBoxText);
    EXPECT_NE(text.find(L"loud is not defined"), std::wstring::npos) << Narrow(text);
    Press(IDYES);
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

TEST_F(Dialogs, DoNotBlockOtherWindows) {
    Write(L"child.html",
          "var n = 0; setInterval(function () {"
          "external.window.title = 'child ' + ++n; if (n === 20) console.log('twenty'); }, 20)");
    Open("createWindow({url: 'child.html'}); _alert('stop'); console.log('after'); external.window.quit(5);");
    ASSERT_TRUE(program_.Dialog());
    EXPECT_TRUE(program_.WaitForLine("twenty"));
    EXPECT_TRUE(program_.Dialog());
    Press(IDOK);
    ExpectEnd({"twenty", "after"});
}

TEST_F(Dialogs, CloseWithTheirWindow) {
    Open("external.window.title = 'Owner'; _alert('stop'); console.log('after');");
    ASSERT_TRUE(program_.Dialog());
    EXPECT_TRUE(Close(program_.WindowTitled(L"Owner")));
    EXPECT_EQ(program_.Quit(3), 3u);
    EXPECT_THAT(program_.Lines(), IsEmpty());
}

}  // namespace
}  // namespace tarvik
