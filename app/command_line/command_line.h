#pragma once

#include <windows.h>

#include "app/command_line/option_set.h"
#include "base/owners.h"

namespace tarvik {

// A command line as raw arguments and as options.
class CCommandLine {
  public:
    CCommandLine() : CCommandLine(GetCommandLineW()) {}
    explicit CCommandLine(const wchar_t* text);

    const wchar_t* GetValue(const wchar_t* key) const { return options_.GetValue(key); }
    bool HasSwitch(const wchar_t* key) const { return options_.HasSwitch(key); }

    int argc = 0;
    wchar_t** argv = nullptr;  // owned; null if the system could not split the text

  private:
    UniqueLocal arguments_;
    OptionSet options_;
};

}  // namespace tarvik
