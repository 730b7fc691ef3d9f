// Well-known libraries of web pages, in their development builds and with their workers, used by a user.

#include "tests/page/program.h"

namespace tarvik {
namespace {

class WebLibrary : public ProgramTest {
  protected:
    // Opens a page of the folder libraries, and waits until its blue middle is shown.
    void OpenPage(const std::wstring& name) {
        program_.Start(L"-f \"" + PathOfPage(L"libraries\\" + name) + L"\"");
        ASSERT_TRUE(program_.WaitForLine("shown"));
        const std::vector<HWND> windows = program_.Windows();
        ASSERT_THAT(windows, testing::SizeIs(1));
        ASSERT_TRUE(WaitForColour(windows.front(), kBlue));
    }

    // The texts that the user types reach the page's state, and its development build can warn.
    void UseForm() {
        ClickAt(kInput);
        PressKeys({'H'});
        PressKeys({'I'});
        ClickAt(kButton);
        EXPECT_TRUE(program_.WaitForLine("hi 1"));
        ClickAt(kButton);
        EXPECT_TRUE(program_.WaitForLine("hi 2"));
        EXPECT_TRUE(program_.HasLine("warned"));
    }

    static constexpr POINT kInput = {400, 175};
    static constexpr POINT kButton = {400, 425};
};

TEST_F(WebLibrary, VueFollowsTheUser) {
    OpenPage(L"vue");
    UseForm();
}

TEST_F(WebLibrary, ReactFollowsTheUser) {
    OpenPage(L"react");
    UseForm();
}

// The library starts the drag of the first item, and notices where the pointer is when it moves.
TEST_F(WebLibrary, SortableIsSortedByDragging) {
    OpenPage(L"sortable");
    int moves = 0;
    const auto reports = [&](const char* line) {
        Send(MoveOf({400, 400 + ++moves % 40}));
        return program_.HasLine(line);
    };
    EXPECT_TRUE(Drag(
        {400, 200}, {400, 440}, [&] { return reports("started"); }, [&] { return reports("moved"); }));
    EXPECT_TRUE(program_.WaitForLine("b c a"));
}

TEST_F(WebLibrary, MonacoTakesKeysAndChecksThemInItsWorker) {
    OpenPage(L"monaco");
    ClickAt({400, 300});
    ASSERT_TRUE(program_.WaitForLine("focus"));
    for (const WORD key : {L'1', L'2', L'X'})
        PressKeys({key});
    EXPECT_TRUE(program_.WaitForLine("text 12x"));
    EXPECT_TRUE(program_.WaitForLine("marker End of file expected."));
}

TEST_F(WebLibrary, PdfIsDrawnByItsWorker) {
    OpenPage(L"pdf");
    EXPECT_TRUE(program_.HasLine("pages 1"));
}

}  // namespace
}  // namespace tarvik
