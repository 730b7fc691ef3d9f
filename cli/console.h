#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

// Standard output or standard error. A console gets UTF-16, so that its font alone limits the characters; a
// pipe or a file gets UTF-8.
class Console {
  public:
    static const Console& Out();
    static const Console& Error();

    bool IsConsole() const { return isConsole_; }
    bool Write(std::wstring_view text) const;  // false if the reader has closed it

  private:
    explicit Console(DWORD standardHandle);

    HANDLE handle_;  // not owned
    bool isConsole_;
};

}  // namespace tarvik
