#pragma once

#include <windows.h>

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// A claim on a name that only one window in the session can own. It ends with this object or with the next
// claim.
class NameClaim {
  public:
    // Returns whether the name was free, so that the window now owns it. By design this is also true for a
    // name that the system rejects.
    bool Claim(HWND window, const std::wstring& name);
    // Brings the owner of the name to the front, if the last claim failed.
    bool ShowOwner() const;

  private:
    UniqueHandle mutex_;
    bool isTaken_ = false;
    std::wstring name_;
};

}  // namespace tarvik
