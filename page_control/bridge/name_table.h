#pragma once

#include <windows.h>
#include <oaidl.h>

#include <deque>
#include <map>
#include <string>
#include <string_view>

namespace tarvik {

// Maps names to dispatch ids, the same for all objects of a page.
class NameTable {
  public:
    DISPID IdOf(std::wstring_view name) {
        const auto found = ids_.find(name);
        if (found != ids_.end()) return found->second;
        names_.emplace_back(name);
        return ids_.emplace(name, static_cast<DISPID>(names_.size())).first->second;
    }
    // Null for an unknown id.
    const std::wstring* NameOf(DISPID id) const {
        return id > 0 && static_cast<size_t>(id) <= names_.size() ? &names_[id - 1] : nullptr;
    }

  private:
    std::map<std::wstring, DISPID, std::less<>> ids_;
    std::deque<std::wstring> names_;
};

}  // namespace tarvik
