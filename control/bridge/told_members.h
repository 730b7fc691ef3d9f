#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

#include "tarvik/variant.h"

namespace tarvik {

// What objects of a page have said of their members. It holds as long as no script runs, which its owner
// knows, and for a moment where nobody can know. Asked for one option of an object, a page tells them all:
// each name would cost as much as all of them.
class ToldMembers {
  public:
    // What every object of the page is born with, and never counts as absent.
    void SetCommonNames(std::set<std::wstring> names) { commonNames_ = std::move(names); }

    // No value: there is such a member, but it must be read.
    using Members = std::map<std::wstring, std::optional<Variant>>;
    // `all`: whatever is not among the members is absent.
    void Tell(int object, Members members, bool all);

    enum class Answer { kUnknown, kAbsent, kThere };
    Answer Ask(int object, const std::wstring& name) const;
    // Null if it must be read.
    const Variant* Value(int object, const std::wstring& name) const;
    bool IsCommon(const std::wstring& name) const { return commonNames_.contains(name); }

    void Clear();
    // For a page that is free to run: keeps what is so fresh that it belongs to the question before.
    void ClearStale();

  private:
    struct Told {
        Members members;
        bool all = false;
    };
    std::set<std::wstring> commonNames_;
    std::unordered_map<int, Told> objects_;
    ULONGLONG since_ = 0;  // GetTickCount64 of the oldest
};

}  // namespace tarvik
