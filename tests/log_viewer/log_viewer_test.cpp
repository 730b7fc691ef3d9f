// Runs tarvik-log as authors do; this process writes the messages.

#include "tests/support/console_program.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class LogViewer : public testing::Test {
  protected:
    // The event exists while there is a reader.
    static bool HasReader() {
        return UniqueHandle(OpenEventW(SYNCHRONIZE, FALSE, L"DBWIN_DATA_READY")) ? true : false;
    }

    void Start(const std::vector<std::wstring>& arguments = {}) {
        ASSERT_FALSE(HasReader());
        viewer_.emplace(L"tarvik-log", arguments, folder_.Path());
        ASSERT_TRUE(WaitFor(HasReader));
    }

    // Everything printed up to a last line, without the times.
    std::string Printed() {
        OutputDebugStringW(L"the end\n");
        EXPECT_TRUE(WaitFor([&] { return viewer_->Out().ends_with("the end\n"); }));
        std::string shortened;
        std::istringstream lines(viewer_->Out());
        for (std::string line; std::getline(lines, line);) {
            EXPECT_THAT(line.substr(0, 13), MatchesRegex(R"(\d\d:\d\d:\d\d\.\d\d\d )"));
            shortened += line.substr(std::min<size_t>(line.size(), 13)) + "\n";
        }
        return shortened;
    }

    const TempFolder folder_;
    const std::string self_ = std::to_string(GetCurrentProcessId()) + " test_log_viewer.exe: ";
    std::optional<ConsoleProgram> viewer_;
};

TEST_F(LogViewer, PrintsProcessesAndTexts) {
    Start();
    OutputDebugStringW(L"Gr\u00fc\u00dfe\n");
    OutputDebugStringW(L"two\r\nlines");
    OutputDebugStringW(L"\n");
    EXPECT_EQ(Printed(), self_ + "Gr\u00fc\u00dfe\n" + self_ + "two\n" + self_ + "lines\n" + self_ + "\n" +
                             self_ + "the end\n");
}

TEST_F(LogViewer, PrintsOneProgramByNameOrId) {
    for (const std::wstring& self :
         {std::wstring(L"TEST_log_viewer"), std::to_wstring(GetCurrentProcessId())}) {
        Start({L"--process", self});
        EXPECT_EQ(Printed(), self_ + "the end\n");
        viewer_.reset();
        ASSERT_TRUE(WaitFor([] { return !HasReader(); }));
    }
    Start({L"--process=test_log"});
    OutputDebugStringW(L"not printed\n");
    OutputDebugStringW(L"neither\n");  // is accepted only after the first has been handled
    EXPECT_EQ(viewer_->Out(), "");
}

TEST_F(LogViewer, IsAloneUntilInterrupted) {
    Start();
    const ConsoleProgram second(L"tarvik-log", {}, folder_.Path());
    EXPECT_EQ(second.Wait(), 1u);
    EXPECT_THAT(second.Error(), HasSubstr("Another viewer"));
    viewer_->PressCtrlC();
    EXPECT_EQ(viewer_->Wait(), 0u);
    EXPECT_EQ(viewer_->Error(), "");
}

TEST_F(LogViewer, RefusesWrongCommandLines) {
    for (const wchar_t* const option : {L"--procces=a", L"--process="}) {
        const ConsoleProgram program(L"tarvik-log", {option}, folder_.Path());
        EXPECT_EQ(program.Wait(), 2u);
        EXPECT_THAT(program.Error(), HasSubstr("--proc"));
    }
}

}  // namespace
}  // namespace tarvik
