#include "tests/page/program.h"

#include <algorithm>
#include <filesystem>

#include "base/job.h"
#include "tarvik/text.h"
#include "tests/support/test.h"

namespace tarvik {

namespace {

namespace fs = std::filesystem;

std::string UniqueMark() {
    static int count = 0;
    return std::to_string(GetCurrentProcessId()) + "." + std::to_string(GetTickCount64()) + "." +
           std::to_string(++count);
}

}  // namespace

std::wstring PathOfPage(const std::wstring& name) {
    return fs::path(ExecutablePath()).parent_path() / L"pages" / (name + L".html");
}

Program::Program()
    : mark_(UniqueMark()), executable_(fs::path(ExecutablePath()).parent_path() / L"tarvik.exe") {
    fs::create_directories(Work());
    fs::create_directories(Temp());
    SetVariable(L"TEMP", Temp());
    SetVariable(L"TARVIK_TEST_RUN", Widen(mark_));
    SetVariable(L"TARVIK_ENGINE", L"chromium");
}

Program::~Program() {
    Kill();
}

void Program::Start(const std::wstring& arguments) {
    std::wstring line = L"\"" + executable_ + L"\" " + arguments;
    std::wstring environment = Environment();
    STARTUPINFOW startup = {sizeof startup};
    PROCESS_INFORMATION information = {};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE,
                               CREATE_UNICODE_ENVIRONMENT | CREATE_SUSPENDED, environment.data(),
                               Work().c_str(), &startup, &information));
    process_ = UniqueHandle(information.hProcess);
    const UniqueHandle thread(information.hThread);
    processId_ = information.dwProcessId;
    threadId_ = information.dwThreadId;
    job_ = AssignToJob(process_.Get());
    ResumeThread(thread.Get());
}

// The environment of this process with the changed variables; names are not case-sensitive.
std::wstring Program::Environment() const {
    std::wstring block;
    wchar_t* const own = GetEnvironmentStringsW();
    for (const wchar_t* entry = own; *entry; entry += wcslen(entry) + 1) {
        const std::wstring text(entry);
        const std::wstring name = text.substr(0, text.find(L'=', 1));
        const bool changed = std::ranges::any_of(environment_, [&](const auto& variable) {
            return _wcsicmp(variable.first.c_str(), name.c_str()) == 0;
        });
        if (!changed) block += text + L'\0';
    }
    FreeEnvironmentStringsW(own);
    for (const auto& [name, value] : environment_) {
        if (!value.empty()) block += name + L"=" + value + L'\0';
    }
    return block + L'\0';
}

DWORD Program::Wait() {
    if (WaitForSingleObject(process_.Get(), kWaitLimit) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "the program does not end";
        return STILL_ACTIVE;
    }
    console_->CatchUp();
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
}

bool Program::IsRunning() const {
    return process_ && WaitForSingleObject(process_.Get(), 0) == WAIT_TIMEOUT;
}

void Program::Kill() {
    if (!process_) return;
    TerminateProcess(process_.Get(), 99);
    WaitForSingleObject(process_.Get(), kWaitLimit);
}

DWORD Program::Quit(int code) {
    EXPECT_TRUE(WaitFor([&] { return PostThreadMessageW(threadId_, WM_QUIT, code, 0) != FALSE; }));
    return Wait();
}

bool Program::HasLine(std::string_view line) const {
    return std::ranges::count(Lines(), line) > 0;
}

bool Program::WaitForLine(std::string_view line) const {
    return WaitFor([&] { return HasLine(line); });
}

std::vector<HWND> Program::Windows(const wchar_t* className) const {
    return TopWindows(className, processId_);
}

HWND Program::WindowTitled(const std::wstring& title) const {
    HWND found = nullptr;
    WaitFor([&] {
        for (const HWND window : Windows()) {
            if (TextOf(window) == title) found = window;
        }
        return found != nullptr;
    });
    return found;
}

HWND Program::Dialog() const {
    HWND dialog = nullptr;
    WaitFor([&] {
        for (const HWND window : Windows(L"#32770")) {
            if (IsWindowVisible(window)) dialog = window;
        }
        return dialog != nullptr;
    });
    return dialog;
}

std::string ProgramTest::Page(const std::string& script) {
    return "<!doctype html><body style='background: rgb(10, 20, 200)'><script>" + script + "</script>";
}

void ProgramTest::ClickPage(const std::wstring& title) {
    const HWND window = program_.WindowTitled(title);
    ASSERT_TRUE(WaitForColour(window, kBlue));
    Click(window);
    ASSERT_TRUE(program_.WaitForLine("clicked"));
}

bool ProgramTest::ShowsNotice(HWND window, const std::string& text) {
    return WaitFor([&] { return Narrow(TextOf(InnermostWindow(window))).find(text) != std::string::npos; });
}

void ProgramTest::ClickNotice(HWND window) {
    constexpr COLORREF kFocusedButton = RGB(25, 95, 180);
    SetForegroundWindow(window);
    std::optional<POINT> edge;
    ASSERT_TRUE(WaitFor([&] {
        edge = FindColour(InnermostWindow(window), kFocusedButton);
        return edge.has_value();
    }));
    ClickAt({edge->x + 5, edge->y + 5});
}

bool ProgramTest::Close(HWND window) {
    PostMessageW(window, WM_CLOSE, 0, 0);
    return WaitFor([&] { return !IsWindow(window); });
}

}  // namespace tarvik
