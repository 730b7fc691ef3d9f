#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "base/com_object.h"

namespace tarvik {

// What a process holds. Take it before and after; GrownSince names what grew, and is empty when nothing did.
// COM objects are those of base/com_object.h.
class Holdings {
  public:
    static Holdings Now();
    std::string GrownSince(const Holdings& before) const;

  private:
    std::map<std::string, long> counts_;
};

// Made first in a test, it fails the test if more COM objects live at its end than before it.
class ObjectCheck {
  public:
    ~ObjectCheck() { EXPECT_EQ(liveComObjects, before_); }

  private:
    const long before_ = liveComObjects;
};

}  // namespace tarvik
