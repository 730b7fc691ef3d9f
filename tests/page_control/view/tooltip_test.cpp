// Tooltips of a page, driven by the real pointer.

#include <windows.h>
#include <commctrl.h>

#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

class Tooltips : public HostedPage {
  protected:
    // The text of the visible tooltip; empty if there is none.
    std::wstring Shown() const {
        for (const HWND window : TopWindows(TOOLTIPS_CLASSW)) {
            if (!IsWindowVisible(window)) continue;
            wchar_t text[256] = {};
            TTTOOLINFOW tool = {sizeof tool, 0, PageWindow()};
            tool.lpszText = text;
            SendMessageW(window, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&tool));
            return text;
        }
        return {};
    }

    testing::AssertionResult Shows(const std::wstring& text) const {
        std::wstring last;
        if (PumpUntil([&] { return (last = Shown()) == text; })) return testing::AssertionSuccess();
        return testing::AssertionFailure() << testing::PrintToString(last);
    }
};

TEST_F(Tooltips, ShowTheTitleOfTheNearestElementUntilTheNextInput) {
    Open(R"(<style>.box { display: block; width: 200px; height: 50px; margin: 20px; border: 0 }</style>
        <div class="box" title="outer &amp; more"><b id="inner">text</b></div>
        <div class="box" title="outer"><b id="none" title="">text</b></div>
        <svg class="box" id="drawn"><title>of a picture</title><rect width="200" height="50"/></svg>
        <iframe class="box" id="frame" title="not this" srcdoc="<body title='in the frame' style='margin: 0; height: 50px'>text"></iframe>)");
    MovePointer(MiddleOf(L"inner"));
    EXPECT_TRUE(Shows(L"outer & more"));
    PressKeys({VK_SHIFT});
    EXPECT_TRUE(Shows(L""));
    MovePointer(MiddleOf(L"frame"));
    EXPECT_TRUE(Shows(L"in the frame"));
    MovePointer(MiddleOf(L"none"));
    EXPECT_TRUE(Shows(L""));
    MovePointer(MiddleOf(L"drawn"));
    EXPECT_TRUE(Shows(L"of a picture"));
    ClickAt(MiddleOf(L"drawn"));
    EXPECT_TRUE(Shows(L""));
    MovePointer(MiddleOf(L"inner"));
    EXPECT_TRUE(Shows(L"outer & more"));
    MovePointer({700, 500});
    EXPECT_TRUE(Shows(L""));
}

}  // namespace
}  // namespace tarvik
