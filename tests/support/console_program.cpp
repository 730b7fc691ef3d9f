#include "tests/support/console_program.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "base/path.h"
#include "base/text.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

UniqueHandle MakeInheritedFile(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return UniqueHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    &inherited, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

ConsoleProgram::ConsoleProgram(const std::wstring& name, const std::vector<std::wstring>& arguments,
                               const std::wstring& folder) {
    std::wstring line =
        QuoteArgument((std::filesystem::path(ExecutablePath()).parent_path() / (name + L".exe")).wstring());
    for (const std::wstring& argument : arguments)
        line += L" " + QuoteArgument(argument);
    const UniqueHandle out = MakeInheritedFile(output_ / L"out");
    const UniqueHandle error = MakeInheritedFile(output_ / L"error");
    STARTUPINFOW startup = {sizeof startup};
    startup.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_HIDE;
    startup.hStdOutput = out.Get();
    startup.hStdError = error.Get();
    PROCESS_INFORMATION information = {};
    EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE, nullptr,
                               folder.c_str(), &startup, &information));
    process_ = UniqueHandle(information.hProcess);
    const UniqueHandle thread(information.hThread);
    processId_ = information.dwProcessId;
}

ConsoleProgram::~ConsoleProgram() {
    if (process_) TerminateProcess(process_.Get(), 99);
}

DWORD ConsoleProgram::Wait() const {
    EXPECT_EQ(WaitForSingleObject(process_.Get(), kWaitLimit), WAIT_OBJECT_0) << "the program does not end";
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(process_.Get(), &code);
    return code;
}

// Every process of the console receives it.
void ConsoleProgram::PressCtrlC() const {
    FreeConsole();
    EXPECT_TRUE(AttachConsole(processId_));
    SetConsoleCtrlHandler(nullptr, TRUE);
    EXPECT_TRUE(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));
    Wait();
    FreeConsole();
    SetConsoleCtrlHandler(nullptr, FALSE);
}

}  // namespace tarvik
