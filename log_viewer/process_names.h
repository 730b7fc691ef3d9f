#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <string_view>

namespace tarvik {

// The file names of programs that run, or ran when they were last asked for.
class ProcessNames {
  public:
    const std::wstring& Of(DWORD process);  // "?" if it was never known

  private:
    std::map<DWORD, std::wstring> names_;
};

// Whether a process is meant by its id, or by its file name, with ".exe" or without it.
bool IsMeant(std::wstring_view nameOrId, DWORD process, std::wstring_view name);

}  // namespace tarvik
