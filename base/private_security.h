#pragma once

#include <windows.h>

#include "base/owners.h"

namespace tarvik {

// Security attributes for objects that only the current user can access, whatever the parent folder grants.
// Throws StatusError.
class PrivateSecurity {
  public:
    PrivateSecurity();
    SECURITY_ATTRIBUTES* Get() { return &attributes_; }

  private:
    UniqueLocal descriptor_;
    SECURITY_ATTRIBUTES attributes_ = {};
};

// Users who share a temporary folder can create files of any name there.
bool IsOwnedByCurrentUser(const UniqueHandle& file);

}  // namespace tarvik
