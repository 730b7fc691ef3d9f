#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>

#include "tarvik/variant.h"

namespace tarvik {

// Members of script objects, as the page reported them. A look-up of one name costs as much as one of all
// names, so a page reports all members of an object at once. The entries are valid until script runs again;
// if the owner cannot determine whether it has, for a few milliseconds.
class MemberCache {
  public:
    // Members that every object inherits, and which therefore are never absent.
    void SetCommonNames(std::set<std::wstring> names) { commonNames_ = std::move(names); }

    // Without a value, the member exists but must be read.
    using Members = std::map<std::wstring, std::optional<Variant>>;
    // `complete`: the object has no other members.
    void Store(int object, Members members, bool complete);

    enum class Result { kUnknown, kAbsent, kPresent };
    Result Lookup(int object, const std::wstring& name) const;
    // Null if the member must be read.
    const Variant* Value(int object, const std::wstring& name) const;
    bool IsCommon(const std::wstring& name) const { return commonNames_.contains(name); }

    void Clear();
    // For a page whose script may run: keeps entries so recent that the caller is still reading the same
    // object.
    void ClearStale();

  private:
    struct Entry {
        Members members;
        bool complete = false;
    };
    std::set<std::wstring> commonNames_;
    std::unordered_map<int, Entry> entries_;
    ULONGLONG since_ = 0;  // GetTickCount64 of the oldest entry
};

}  // namespace tarvik
