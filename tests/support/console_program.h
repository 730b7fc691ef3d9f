#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "tarvik/owners.h"
#include "tests/support/temp_folder.h"

namespace tarvik {

// A console program of the build, in a hidden console of its own. Its output is collected.
class ConsoleProgram {
  public:
    ConsoleProgram(const std::wstring& name, const std::vector<std::wstring>& arguments,
                   const std::wstring& folder);
    ~ConsoleProgram();

    DWORD Id() const { return processId_; }
    std::string Out() const { return ReadFileBytes(output_ / L"out"); }  // so far, in UTF-8
    std::string Error() const { return ReadFileBytes(output_ / L"error"); }
    // The exit code when the program has ended.
    DWORD Wait() const;
    void PressCtrlC() const;

  private:
    const TempFolder output_;
    UniqueHandle process_;
    DWORD processId_ = 0;
};

}  // namespace tarvik
