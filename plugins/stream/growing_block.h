#pragma once

#include <cstdint>

#include "base/owners.h"

namespace tarvik {

// Memory that grows in whole mebibytes. New memory is zero, and is not allocated physically until it is used.
class GrowingBlock {
  public:
    // Ensures a capacity of `needed` bytes and preserves the first `used` bytes. Returns false and changes
    // nothing if out of memory.
    [[nodiscard]] bool Reserve(uint64_t needed, uint64_t used) noexcept;

    // Null before the first growth. Reserve may move the block.
    uint8_t* Data() const noexcept { return static_cast<uint8_t*>(pages_.Get()); }

  private:
    UniquePages pages_;
    uint64_t addresses_ = 0;  // reserved, so that the block can grow in place
    uint64_t capacity_ = 0;
};

}  // namespace tarvik
