// Messages by `window.msg` between two programs, and programs of which only one instance runs.

#include <gtest/gtest.h>

#include "tarvik/text.h"
#include "tests/page/program.h"

namespace tarvik {
namespace {

class Messages : public testing::Test {
  protected:
    // The mark makes the identifiers of the windows unique on the desktop.
    void Start(Program& program, const std::wstring& role) const {
        program.Start(L"-f \"" + PathOfPage(L"messages") + L"#" + role + L"," + Widen(first_.Mark()) + L"\"");
    }
    void StartFirst(const std::wstring& role) {
        Start(first_, role);
        ASSERT_TRUE(first_.WaitForLine(Narrow(role) + " is ready"));
    }
    static void ExpectEnd(Program& program) {
        EXPECT_EQ(program.Wait(), 0u) << testing::PrintToString(program.Lines());
    }

    Program first_;
    Program second_;
};

TEST_F(Messages, WorkInBothDirections) {
    StartFirst(L"server");
    Start(second_, L"client");
    ExpectEnd(second_);
    ExpectEnd(first_);
}

TEST_F(Messages, ReachAllWindows) {
    StartFirst(L"member");
    Start(second_, L"group");
    ExpectEnd(second_);
    ExpectEnd(first_);
}

TEST_F(Messages, EndIfTheReceiverIsKilled) {
    StartFirst(L"server");
    Start(second_, L"survivor");
    ASSERT_TRUE(first_.WaitForLine("hanging"));
    first_.Kill();
    ExpectEnd(second_);
}

TEST_F(Messages, SecondInstanceActivatesTheFirst) {
    StartFirst(L"single");
    const HWND window = first_.WindowTitled(L"the only one");
    for (const int state : {SW_HIDE, SW_SHOWMINIMIZED}) {
        ShowWindow(window, state);
        Program again;
        Start(again, L"single");
        ExpectEnd(again);
        EXPECT_TRUE(IsWindowVisible(window) && !IsIconic(window)) << state;
        EXPECT_EQ(GetForegroundWindow(), window) << state;
    }
    EXPECT_EQ(first_.Quit(0), 0u);
    Start(second_, L"single");
    EXPECT_TRUE(second_.WindowTitled(L"the only one")) << "the name is free again";
    EXPECT_EQ(second_.Quit(0), 0u);
}

}  // namespace
}  // namespace tarvik
