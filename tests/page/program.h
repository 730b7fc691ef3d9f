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

// A page of this folder.
std::wstring PathOfPage(const std::wstring& name);

// The built program as a process that cannot outlive the test. It has a folder for its work, which is its
// current one, and another for temporary files. What its pages write to the console is heard.
class Program {
  public:
    Program();
    ~Program();

    // Before the start: the folder beside which everything is, variables of its environment (an empty one is
    // not set), and the executable, which is the built one unless a copy is named.
    const TempFolder& Folder() const { return folder_; }
    std::wstring Work() const { return folder_ / L"work"; }
    std::wstring Temp() const { return folder_ / L"temp"; }
    void SetVariable(const std::wstring& name, const std::wstring& value) { environment_[name] = value; }
    void UseExecutable(const std::wstring& path) { executable_ = path; }

    void Start(const std::wstring& arguments = L"");

    // The exit code; fails the test if the program does not end by itself.
    DWORD Wait(DWORD limit = 30'000);
    bool IsRunning() const;
    void Kill();
    // From outside, as WM_QUIT.
    DWORD Quit(int code);

    DWORD Id() const { return processId_; }
    // What was written to the debugger's channel, a line each.
    std::vector<std::string> Lines() const { return console_->Lines(processId_); }
    bool WaitForLine(std::string_view line) const;
    // The mark that everything started by this program carries in its environment: TARVIK_TEST_RUN=this.
    const std::string& Mark() const { return mark_; }

    // Its top-level windows of a class, also hidden ones.
    std::vector<HWND> Windows(const wchar_t* className = L"TarvikBrowserWindow") const;
    HWND WindowTitled(const std::wstring& title) const;  // waits for it
    // A window's text; empty if its program is too busy to tell, which must not stop a test.
    static std::wstring TextOf(HWND window);
    // A dialog of the program, once it is there.
    HWND Dialog() const;

  private:
    std::wstring Environment() const;

    const TempFolder folder_;
    const std::string mark_;
    std::wstring executable_;
    std::map<std::wstring, std::wstring> environment_;

    const std::shared_ptr<DebugListener> console_ = DebugListener::Shared();
    UniqueHandle job_;  // ends with this process
    UniqueHandle process_;
    DWORD processId_ = 0;
    DWORD threadId_ = 0;
};

inline constexpr COLORREF kBlue = RGB(10, 20, 200);

// Tests of the program with pages of theirs. What a test leaves running ends well when it is told to.
class ProgramTest : public testing::Test {
  protected:
    void TearDown() override {
        if (program_.IsRunning()) {
            EXPECT_EQ(program_.Quit(3), 3u);
        }
    }

    // A page of this script before a blue background, beside the one that is opened first.
    static std::string Page(const std::string& script);
    void Write(const std::wstring& name, const std::string& script) const {
        program_.Folder().Write(L"work\\resource\\" + name, Page(script));
    }
    void Open(const std::string& script) {
        Write(L"index.html", script);
        program_.Start();
    }
    // Whether the window goes when it is told to, within the time (milliseconds).
    static bool Close(HWND window, DWORD limit = 20'000);

    Program program_;
};

}  // namespace tarvik
