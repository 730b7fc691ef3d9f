#pragma once

#include <windows.h>

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// One name of which there is one window in the session. The claim on it ends with this object or with a claim
// on another name.
class NameClaim {
  public:
    // Whether the name was free, and the window now owns it. If the system refuses the name, it is free for
    // everybody; that is intended.
    bool Claim(HWND window, const std::wstring& name);
    // Brings up the window that owns the name. Only for one that claimed it in vain.
    bool ShowOwner() const;

  private:
    UniqueHandle mutex_;
    bool isTaken_ = false;
    std::wstring name_;
};

}  // namespace tarvik
