#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tarvik/com_object.h"

namespace tarvik {

// What a process holds, counted. Take it before and after; GrownSince names what grew, and is empty when
// nothing did. COM objects are those of tarvik/com_object.h; windows are of all kinds and levels.
class Holdings {
  public:
    struct Count {
        const char* what;
        long count;
    };

    static Holdings Now();
    // For what only the test knows of; each time in the same order.
    void Add(const char* what, long count) { counts_.push_back({what, count}); }

    // Counts otherwise from here on what may grow for a while.
    long Take(std::string_view what);

    std::string GrownSince(const Holdings& before) const;
    const std::vector<Count>& Counts() const { return counts_; }

  private:
    std::vector<Count> counts_;
};

// Made first in a test, it fails the test if more COM objects live at its end than before it.
class ObjectCheck {
  public:
    ~ObjectCheck() { EXPECT_EQ(liveComObjects, before_); }

  private:
    const long before_ = liveComObjects;
};

// Handles in use among the first some thousand: Wine does not count them when it is asked to. Not one of the
// holdings, because the system keeps some for later.
long CountHandles();

}  // namespace tarvik
