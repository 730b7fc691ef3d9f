#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace tarvik {

// The key-value pairs and switches among the arguments of a command line. Keys ignore the case of ASCII
// letters; the first of equal keys wins. `k=v`, `-k v` and `/k v` are pairs; `-s`, `/s` and a bare word are
// switches.
class OptionSet {
  public:
    OptionSet() = default;
    explicit OptionSet(std::span<const wchar_t* const> arguments);  // without the program name

    // Both ignore one leading / or - of the key. Null if there is no such pair.
    const wchar_t* GetValue(const wchar_t* key) const;
    bool HasSwitch(const wchar_t* key) const;  // false for null

  private:
    struct CaseInsensitiveLess {
        using is_transparent = void;
        bool operator()(std::wstring_view left, std::wstring_view right) const;
    };

    bool AddPair(std::wstring_view argument);

    std::map<std::wstring, std::wstring, CaseInsensitiveLess> pairs_;
    std::set<std::wstring, CaseInsensitiveLess> switches_;
};

}  // namespace tarvik
