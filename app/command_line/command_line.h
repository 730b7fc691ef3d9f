#pragma once

#include <windows.h>

#include <map>
#include <set>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// A command line as raw arguments, key-value pairs and switches. Keys ignore case; of equal keys the first
// counts. `k=v`, `-k v` and `/k v` are pairs; `-s`, `/s` and a bare word are switches.
class CCommandLine {
  public:
    CCommandLine() : CCommandLine(GetCommandLineW()) {}
    explicit CCommandLine(const wchar_t* text);

    // Null if there is no such pair. One leading / or - of the key is ignored.
    const wchar_t* GetValue(const wchar_t* key) const;
    bool HasSwitch(const wchar_t* key) const;  // likewise; false for null

    int argc = 0;
    wchar_t** argv = nullptr;  // owned; null if the system could not split the text

  private:
    struct IgnoringCase {
        bool operator()(const std::wstring& left, const std::wstring& right) const {
            return _wcsicmp(left.c_str(), right.c_str()) < 0;
        }
    };

    void Parse();
    bool AddPair(const wchar_t* argument);

    std::map<std::wstring, std::wstring, IgnoringCase> pairs_;
    UniqueLocal arguments_;
    std::set<std::wstring, IgnoringCase> switches_;
};

}  // namespace tarvik
