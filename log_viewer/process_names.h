#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <string_view>

namespace tarvik {

// The file names of processes, including those that have ended since they were last queried.
class ProcessNames {
  public:
    const std::wstring& Of(DWORD process);  // "?" if unknown

  private:
    std::map<DWORD, std::wstring> names_;
};

// Whether an id or a file name, with or without ".exe", denotes a process.
bool Matches(std::wstring_view nameOrId, DWORD process, std::wstring_view name);

}  // namespace tarvik
