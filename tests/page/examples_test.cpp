// Runs the examples in the declarations, one after the other.

#include <filesystem>

#include "tests/page/program.h"

namespace tarvik {
namespace {

namespace fs = std::filesystem;

class Examples : public ProgramTest {
  protected:
    // Creates the folder in which the examples expect to run.
    void CreateFolder() {
        const fs::path work(program_.Work());
        const fs::path programs = fs::path(ExecutablePath()).parent_path();
        fs::copy(programs / "examples", work, fs::copy_options::recursive);
        program_.Folder().Write(L"work\\second.html", "<!DOCTYPE html><title>Second</title>");
    }
    // Cancels every dialog and menu.
    void CancelDialogs() {
        for (const wchar_t* className : {L"#32770", L"#32768"}) {
            for (const HWND window : program_.Windows(className)) {
                for (const int button : {IDCANCEL, IDNO})
                    PostMessageW(window, WM_COMMAND, button, 0);
                PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
            }
        }
    }
};

TEST_F(Examples, Run) {
    CreateFolder();
    program_.Start(L"-f 0.html");
    EXPECT_TRUE(WaitFor([&] { return CancelDialogs(), !program_.IsRunning(); }, 250'000));
    for (const std::string& line : program_.Lines())
        EXPECT_FALSE(line.starts_with("FAILED")) << line;
    EXPECT_EQ(program_.Wait(), 0u);
}

}  // namespace
}  // namespace tarvik
