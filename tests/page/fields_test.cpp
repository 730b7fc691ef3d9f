// The dialogs for fields of a date, a time or a colour, opened and used as a user does.

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"

namespace tarvik {
namespace {

class Fields : public ProgramTest {
  protected:
    // Opens a page with such a field, which logs its events and keys.
    void OpenWith(const std::string& attributes) {
        Open(
            "var w = external.window; w.title = 'Field'; w.setWindowPos(100, 80, 500, 400); w.show(true);"
            "document.body.innerHTML = '<input id=field " +
            attributes +
            " style=\"position: absolute; left: 0; top: 0; width: 300px; height: 40px\">';"
            "['input', 'change', 'keydown'].forEach(function (type) {"
            "  field.addEventListener(type, function (e) {"
            "    console.log(type + ' ' + (e.key || field.value)); }); });");
        ASSERT_TRUE(WaitForColour(program_.WindowTitled(L"Field"), kBlue));
    }

    // Clicks at this distance from the left.
    void ClickField(int x) {
        POINT point = {x, 20};
        ClientToScreen(InnermostWindow(program_.WindowTitled(L"Field")), &point);
        ClickAt(point);
    }
    static constexpr int kIndicator = 291;

    testing::AssertionResult Logs(std::string_view line) {
        if (WaitFor([&] { return program_.HasLine(line); }, 8000)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << testing::PrintToString(program_.Lines());
    }
};

TEST_F(Fields, TakeTheDateOfACalendar) {
    OpenWith("type=date value=2024-02-29 min=2024-02-05");
    ClickField(kIndicator);
    const HWND first = program_.Dialog();
    EXPECT_EQ(TextOf(first), L"Date");
    EXPECT_TRUE(FindWindowExW(first, nullptr, L"SysMonthCal32", nullptr));
    EXPECT_TRUE(Press(first, IDCANCEL));
    ClickField(20);
    PressKeys({VK_MENU, VK_DOWN});
    EXPECT_TRUE(Press(program_.Dialog(), 102));  // Clear
    EXPECT_TRUE(Logs("change "));
}

TEST_F(Fields, TakeATime) {
    OpenWith("type=time value=09:30");
    ClickField(kIndicator);
    const HWND dialog = program_.Dialog();
    PressKeys({VK_RIGHT});
    PressKeys({VK_UP});
    PressKeys({VK_RETURN});
    EXPECT_TRUE(WaitFor([&] { return !IsWindow(dialog); }, 8000));
    EXPECT_TRUE(Logs("change 10:30"));
}

TEST_F(Fields, TakeAColour) {
    constexpr int kGreen = 707;  // of the system's dialog
    OpenWith("type=color value=#102030");
    ClickField(100);
    const HWND dialog = program_.Dialog();
    EXPECT_EQ(TextOf(dialog, kGreen), L"32");
    SendMessageW(GetDlgItem(dialog, kGreen), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"255"));
    EXPECT_TRUE(Press(dialog, IDOK));
    EXPECT_TRUE(Logs("change #10ff30"));
}

}  // namespace
}  // namespace tarvik
