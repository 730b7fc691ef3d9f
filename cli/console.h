#pragma once

#include <windows.h>

#include <string_view>

namespace tarvik {

// A standard channel of a console program. A console shows every letter that its font has; elsewhere, in a
// pipe or a file, the text is UTF-8.
class Console {
  public:
    static const Console& Out();
    static const Console& Error();

    bool IsConsole() const { return isConsole_; }
    bool Write(std::wstring_view text) const;  // false if nobody can read it any more

  private:
    explicit Console(DWORD channel);

    HANDLE handle_;  // the system's
    bool isConsole_;
};

}  // namespace tarvik
