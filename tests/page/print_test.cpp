// window.print(), with a printer that writes to a file, and without one.

#include <windows.h>
#include <dlgs.h>

#include <functional>
#include <regex>

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"
#include "tests/support/test_printer.h"

namespace tarvik {
namespace {

class Print : public ProgramTest {
  protected:
    // Opens a page of five sheets, whose button calls print(), in a frame if it has one.
    void OpenPage(const std::string& html = "", const std::string& script = "") {
        BeginToOpenPage(html, script);
        ASSERT_TRUE(WaitForColour(program_.WindowTitled(L"Sheets"), kBlue));
    }
    void BeginToOpenPage(const std::string& html, const std::string& script) {
        Open(
            "var w = external.window; w.title = 'Sheets'; w.setWindowPos(100, 80, 500, 400); w.show(true);"
            "document.title = 'Bean: list'; document.body.style.margin = 0;"
            "document.body.innerHTML = '<button style=\"width:300px;height:60px\">print</button>" +
            html +
            "<style>p { break-before: page; } .short p { display: none; }</style>"
            "<p>2<p>3<p>4<p>5';"
            "onbeforeprint = onafterprint = function (e) { console.log(e.type); };"
            "document.querySelector('button').onclick = function () {"
            "  console.log('click'); (window[0] || window).print(); console.log('done'); };" +
            script);
    }

    void Click() {
        POINT point = {100, 30};
        ClientToScreen(InnermostWindow(program_.WindowTitled(L"Sheets")), &point);
        ClickAt(point);
    }
    HWND ClickForDialog() {
        Click();
        return program_.Dialog();
    }

    testing::AssertionResult Logs(const std::vector<std::string>& lines) {
        if (WaitFor([&] { return program_.Lines() == lines; })) return testing::AssertionSuccess();
        return testing::AssertionFailure() << testing::PrintToString(program_.Lines());
    }

    static double NumberAfter(const std::string& text, const std::string& pattern) {
        std::smatch match;
        if (!std::regex_search(text, match, std::regex(pattern + "([.\\d]+)"))) return 0;
        return std::stod(match.str(1));
    }
    static double SheetsOf(const std::string& pdf) { return NumberAfter(pdf, "/Count "); }

    // Not the dialog that shows the progress.
    HWND DialogWith(const std::function<bool(HWND dialog)>& part) const {
        HWND found = nullptr;
        EXPECT_TRUE(WaitFor([&] {
            for (const HWND window : program_.Windows(L"#32770"))
                if (IsWindowVisible(window) && part(window)) found = window;
            return found != nullptr;
        }));
        return found;
    }

    void ExpectMessage(const std::string& text) const {
        constexpr int kBoxText = 0xFFFF;
        const HWND box = DialogWith([](HWND window) { return !TextOf(window, kBoxText).empty(); });
        EXPECT_THAT(Narrow(TextOf(box, kBoxText)), testing::HasSubstr(text));
        EXPECT_TRUE(Press(box, IDOK));
    }

    HWND ClickForFileDialog() {
        Click();
        return DialogWith([](HWND window) { return EditOf(window) != nullptr; });
    }

    // What the printer has printed.
    std::string Printed() const {
        EXPECT_TRUE(WaitFor([&] { return FileExists(output_); }));
        return ReadFileBytes(output_);
    }

    const std::wstring output_ = program_.Folder() / L"printed.pdf";
};

TEST_F(Print, SendsTheChosenPagesToThePrinter) {
    const TestPrinter printer(output_);
    OpenPage();
    const HWND dialog = ClickForDialog();
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), program_.WindowTitled(L"Sheets"));
    EXPECT_TRUE(Logs({"click", "beforeprint"}));
    SendMessageW(GetDlgItem(dialog, rad3), BM_CLICK, 0, 0);
    SetDlgItemTextW(dialog, edt1, L"2");
    SetDlgItemTextW(dialog, edt2, L"4");
    EXPECT_TRUE(Press(dialog, IDOK));
    EXPECT_TRUE(Logs({"click", "beforeprint", "afterprint", "done"}));
    const std::string pdf = Printed();
    EXPECT_THAT(pdf, testing::StartsWith("%PDF-"));
    EXPECT_EQ(SheetsOf(pdf), 3);
    // The printer's paper is A4, and the engine's own is another.
    EXPECT_NEAR(NumberAfter(pdf, "MediaBox \\[0 0 "), 595, 1);
}

// The page waits, so that its state during print() is what is printed; a frame's print() prints the page.
TEST_F(Print, WaitsAndPrintsThePageAsItIsMeanwhile) {
    const TestPrinter printer(output_);
    OpenPage("<iframe hidden></iframe>",
             "window[0].onbeforeprint = function () { console.log('frame'); print(); };"
             "onbeforeprint = function () { document.body.className = 'short'; };"
             "onafterprint = function () { document.body.className = ''; console.log('after'); };"
             "matchMedia('print').onchange = function (e) { console.log('media ' + e.matches); };");
    EXPECT_TRUE(Press(ClickForDialog(), IDCANCEL));
    EXPECT_TRUE(Logs({"click", "frame", "after", "done"}));
    EXPECT_FALSE(FileExists(output_));
    EXPECT_TRUE(Press(ClickForDialog(), IDOK));
    // A native call while the engine lays the page out throws, but opens no dialog and leaves print() alone.
    EXPECT_TRUE(Logs({"click", "frame", "after", "done", "click", "frame", "after", "done", "media false"}));
    EXPECT_EQ(SheetsOf(Printed()), 1);
}

TEST_F(Print, SaysWhatHasFailedAndCanBeTriedAgain) {
    const TestPrinter printer(program_.Folder() / L"missing\\printed.pdf");
    OpenPage();
    const HWND tooMany = ClickForDialog();
    SendMessageW(GetDlgItem(tooMany, rad3), BM_CLICK, 0, 0);
    SetDlgItemTextW(tooMany, edt1, L"8");
    SetDlgItemTextW(tooMany, edt2, L"9");
    EXPECT_TRUE(Press(tooMany, IDOK));
    ExpectMessage("fewer pages");
    EXPECT_TRUE(Press(ClickForDialog(), IDOK));
    ExpectMessage("The printer");
    EXPECT_TRUE(
        Logs({"click", "beforeprint", "afterprint", "done", "click", "beforeprint", "afterprint", "done"}));
}

TEST_F(Print, SavesAFileWhereThereIsNoPrinter) {
    OpenPage("", "var print = function () { document.execCommand('print'); };");
    EXPECT_TRUE(Press(ClickForFileDialog(), IDCANCEL));
    EXPECT_TRUE(Logs({"click", "beforeprint", "afterprint", "done"}));
    const HWND dialog = ClickForFileDialog();
    EXPECT_EQ(TextOf(EditOf(dialog)), L"Bean_ list.pdf");
    EnterFileName(dialog, output_);
    EXPECT_EQ(SheetsOf(Printed()), 5);
}

// A page that prints while it is being loaded is printed afterwards. A window that is closed takes the dialog
// along, and the program ends.
TEST_F(Print, StartsWhenThePageIsCompleteAndEndsWithTheWindow) {
    const TestPrinter printer(output_);
    BeginToOpenPage("", "w.onClosed = function () { w.quit(5); }; print(); print(); console.log('loading');");
    const HWND dialog = program_.Dialog();
    EXPECT_TRUE(Logs({"loading", "beforeprint"}));
    PostMessageW(program_.WindowTitled(L"Sheets"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }));
    EXPECT_EQ(program_.Wait(), 5u);
    EXPECT_FALSE(FileExists(output_));
}

}  // namespace
}  // namespace tarvik
