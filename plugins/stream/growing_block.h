#pragma once

#include <cstdint>

#include "tarvik/owners.h"

namespace tarvik {

// Memory that grows in whole mebibytes. Whatever was not written yet is zero, and takes no memory until it is
// touched.
class GrowingBlock {
  public:
    // Room for `needed` bytes, with the first `kept` bytes as they were. False where there is no memory for
    // it; then nothing has changed.
    [[nodiscard]] bool Reserve(uint64_t needed, uint64_t kept) noexcept;

    // Null before the first growth; may move with any growth.
    uint8_t* Data() const noexcept { return static_cast<uint8_t*>(pages_.Get()); }

  private:
    UniquePages pages_;
    uint64_t addresses_ = 0;  // kept free behind the block, so that it can grow where it is
    uint64_t capacity_ = 0;
};

}  // namespace tarvik
