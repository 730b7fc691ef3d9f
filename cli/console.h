#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

// Standard output or standard error. A console receives UTF-16, and can show every character of its font; a
// pipe or a file receives UTF-8.
class Console {
  public:
    static const Console& Out();
    static const Console& Error();

    bool IsConsole() const { return isConsole_; }
    bool Write(std::wstring_view text) const;  // false if the reader has closed the pipe

  private:
    explicit Console(DWORD standardHandle);

    HANDLE handle_;  // not owned
    bool isConsole_;
};

}  // namespace tarvik
