#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tarvik/com_object.h"

namespace tarvik {

// Counts of the resources that this process holds: COM objects (tarvik/com_object.h), threads, windows of all
// types and levels, GDI and USER handles.
class ResourceCounts {
  public:
    struct Count {
        const char* what;
        long count;
    };

    static ResourceCounts Now();
    // Adds a count of the test's own. ResourceCounts that are compared need the same counts in the same
    // order.
    void Add(const char* what, long count) { counts_.push_back({what, count}); }

    // Removes a count and returns it, for a resource that may grow for a while.
    long Take(std::string_view what);

    // The counts that are higher than before, as text; empty if there are none.
    std::string GrownSince(const ResourceCounts& before) const;
    const std::vector<Count>& Counts() const { return counts_; }

  private:
    std::vector<Count> counts_;
};

// Created first in a test, it fails the test if COM objects leak.
class ObjectCheck {
  public:
    ObjectCheck() = default;
    ~ObjectCheck() { EXPECT_EQ(detail::liveComObjects, before_); }

  private:
    const long before_ = detail::liveComObjects;
};

// The number of open handles of this process below 0x4000; Wine's GetProcessHandleCount does not work.
// ResourceCounts does not contain it, because the system caches some handles.
long CountHandles();

}  // namespace tarvik
