#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "tests/page/debug_listener.h"
#include "tests/support/screen.h"
#include "tests/support/test.h"

namespace tarvik {

// The path of a page in the folder pages.
std::wstring PathOfPage(const std::wstring& name);

// The built program, as a process that is killed at the end of the test. It has a working folder and a folder
// for temporary files. The lines that its pages log are recorded.
class Program {
  public:
    Program();
    ~Program();

    // Settings before the start. Work and Temp are in Folder; an empty value removes a variable from the
    // environment; the default executable is the built one.
    const TempFolder& Folder() const { return folder_; }
    std::wstring Work() const { return folder_ / L"work"; }
    std::wstring Temp() const { return folder_ / L"temp"; }
    void SetVariable(const std::wstring& name, const std::wstring& value) { environment_[name] = value; }
    void UseExecutable(const std::wstring& path) { executable_ = path; }

    void Start(const std::wstring& arguments = L"");

    // Waits for the end of the program and returns its exit code.
    DWORD Wait();
    bool IsRunning() const;
    void Kill();
    // Posts WM_QUIT to the program and waits for its end.
    DWORD Quit(int code);

    DWORD Id() const { return processId_; }
    // The lines that the program has sent to the debugger.
    std::vector<std::string> Lines() const { return console_->Lines(processId_); }
    bool HasLine(std::string_view line) const;
    bool WaitForLine(std::string_view line) const;
    // The value of TARVIK_TEST_RUN in the environment of the program and of all processes that it starts.
    const std::string& Mark() const { return mark_; }

    // The top-level windows of a class, including hidden ones.
    std::vector<HWND> Windows(const wchar_t* className = L"TarvikBrowserWindow") const;
    HWND WindowTitled(const std::wstring& title) const;  // waits for it
    // Waits for a dialog of the program.
    HWND Dialog() const;

  private:
    std::wstring Environment() const;

    const TempFolder folder_;
    const std::string mark_;
    std::wstring executable_;
    std::map<std::wstring, std::wstring> environment_;

    const std::shared_ptr<DebugListener> console_ = DebugListener::Shared();
    UniqueHandle job_;  // kills the program when this process ends
    UniqueHandle process_;
    DWORD processId_ = 0;
    DWORD threadId_ = 0;
};

inline constexpr COLORREF kBlue = RGB(10, 20, 200);

// The base of tests that run the program with their own pages.
class ProgramTest : public testing::Test {
  protected:
    void TearDown() override {
        if (program_.IsRunning()) {
            EXPECT_EQ(program_.Quit(3), 3u);
        }
    }

    // A page with a blue background and this script.
    static std::string Page(const std::string& script);
    // Writes a page beside the first one.
    void Write(const std::wstring& name, const std::string& script) const {
        program_.Folder().Write(L"work\\resource\\" + name, Page(script));
    }
    void Open(const std::string& script) {
        Write(L"index.html", script);
        program_.Start();
    }
    // Clicks such a page, so that it has the focus, and waits until it logs "clicked".
    void ClickPage(const std::wstring& title);
    // Waits until a window shows a notice in place of its page, whose text contains this one.
    static bool ShowsNotice(HWND window, const std::string& text);
    // Clicks the button of the notice that has the keyboard focus: the first one, unless keys have moved it.
    static void ClickNotice(HWND window);
    // Closes a window, and waits for its end.
    static bool Close(HWND window);

    Program program_;
};

}  // namespace tarvik
