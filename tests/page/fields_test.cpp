// The dialogs for fields of a date, a time or a colour, and lists of suggestions, opened and used as a user
// does.

#include "tarvik/text.h"
#include "tests/page/program.h"
#include "tests/support/dialog_driver.h"

namespace tarvik {
namespace {

class Fields : public ProgramTest {
  protected:
    // Opens a page with such a field, which logs its events and keys, and with other elements.
    void OpenWith(const std::string& attributes, const std::string& elements = "") {
        Open(
            "var w = external.window; w.title = 'Field'; w.setWindowPos(100, 80, 500, 400); w.show(true);"
            "document.body.innerHTML = '<input id=field " +
            attributes + " style=\"position: absolute; left: 0; top: 0; width: 300px; height: 40px\">" +
            elements +
            "';"
            "['input', 'change', 'keydown'].forEach(function (type) {"
            "  field.addEventListener(type, function (e) {"
            "    console.log((e.isTrusted ? '' : 'untrusted ') + type + ' ' + (e.key || field.value)); }); "
            "});");
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

// The rows of the list that is shown; a tab separates a label.
class Suggestions : public Fields {
  protected:
    HWND List() const {
        for (const HWND list : program_.Windows(L"ListBox")) {
            if (IsWindowVisible(list)) return list;
        }
        return nullptr;
    }
    std::vector<std::wstring> Rows() const {
        std::vector<std::wstring> rows;
        const HWND list = List();
        const LRESULT count = list ? SendMessageW(list, LB_GETCOUNT, 0, 0) : 0;
        for (LRESULT row = 0; row < count; ++row) {
            wchar_t text[100] = {};
            SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
            rows.emplace_back(text);
        }
        return rows;
    }
    testing::AssertionResult Shows(const std::vector<std::wstring>& rows) {
        if (WaitFor([&] { return Rows() == rows; }, 8000)) return testing::AssertionSuccess();
        return testing::AssertionFailure() << Rows().size() << testing::PrintToString(program_.Lines());
    }

    const std::string fruits_ =
        "<datalist id=fruits><option value=apple><option value=banana><option value=cherry label=\"red\">"
        "<option disabled value=kiwi><option>pineapple</datalist>";
    const std::vector<std::wstring> all_ = {L"apple", L"banana", L"cherry\tred", L"pineapple"};
};

TEST_F(Suggestions, AreChosenByKeysThatThePageDoesNotGet) {
    OpenWith("list=fruits", fruits_);
    ClickField(20);
    EXPECT_TRUE(Shows(all_));
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(Shows({}));
    PressKeys({'E'});
    EXPECT_TRUE(Shows({L"apple", L"cherry\tred", L"pineapple"}));
    PressKeys({'D'});
    EXPECT_TRUE(Shows({L"cherry\tred"}));
    PressKeys({VK_DOWN});
    PressKeys({VK_RETURN});
    EXPECT_TRUE(Logs("change cherry"));
    EXPECT_TRUE(Shows({}));
    PressKeys({VK_RETURN});
    EXPECT_TRUE(Logs("keydown Enter"));
    // The script sees the engine's own event of a key, which names none.
    EXPECT_THAT(program_.Lines(), ElementsAre("keydown e", "input e", "keydown d", "input ed", "keydown ed",
                                              "input cherry", "change cherry", "keydown Enter"));
}

TEST_F(Suggestions, AreChosenByTheMouse) {
    OpenWith("list=numbers type=number", "<datalist id=numbers><option>10<option>none<option>20</datalist>");
    ClickField(20);
    EXPECT_TRUE(Shows({L"10", L"20"}));
    RECT row = {};
    SendMessageW(List(), LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
    POINT point = {row.left + 20, (row.top + row.bottom) / 2};
    ClientToScreen(List(), &point);
    ClickAt(point);
    EXPECT_TRUE(Logs("change 20"));
    ClickField(20);
    EXPECT_TRUE(Shows({L"20"}));
    ClickAt({400, 400});
    EXPECT_TRUE(Shows({}));
}

// None of these changes has an event of the field. The page makes the next one while a list is shown.
TEST_F(Suggestions, CloseWithTheirField) {
    Write(L"next.html", "");
    OpenWith(
        "list=fruits",
        fruits_ +
            "<iframe id=frame style=\"position: absolute; left: 0; top: 100px\"></iframe>';"
            "frame.contentDocument.body.innerHTML = '<input list=a style=\"width: 200px; height: 100px\">"
            "<datalist id=a><option>fig</datalist>';"
            "onerror = function (message) { console.log(message); };"
            "var steps = [function () { field.readOnly = true; },"
            "  function () { frame.remove(); field.readOnly = false; },"
            "  function () { location = \"next.html\"; }];"
            "document.onmousedown = frame.contentDocument.onmousedown = function () {"
            "  setTimeout(function () { steps.shift()(); }, 2000); };'");
    for (const int y : {20, 150, 20}) {
        POINT point = {50, y};
        ClientToScreen(InnermostWindow(program_.WindowTitled(L"Field")), &point);
        ClickAt(point);
        EXPECT_TRUE(WaitFor([&] { return List() != nullptr; }));
        EXPECT_TRUE(Shows({}));
    }
    EXPECT_THAT(program_.Lines(), ElementsAre());
}

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

// At first the time is past the limit; the dialog offers the limit.
TEST_F(Fields, TakeATime) {
    OpenWith("type=time value=09:30 max=10:30 step=1800");
    ClickField(kIndicator);
    const HWND dialog = program_.Dialog();
    PressKeys({VK_RIGHT});
    PressKeys({VK_UP});
    PressKeys({VK_UP});
    PressKeys({VK_RETURN});
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
