#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace tarvik {

// Memory that grows in whole mebibytes. Whatever was not written yet is zero.
class GrowingBlock {
  public:
    // Room for `needed` bytes, with the first `kept` bytes as they were. False where there is no memory for
    // it; then nothing has changed.
    [[nodiscard]] bool Reserve(uint64_t needed, uint64_t kept) noexcept;

    // Null before the first growth; moves with every growth.
    uint8_t* Data() const noexcept { return bytes_.get(); }
    uint64_t Capacity() const noexcept { return capacity_; }

  private:
    struct Free {
        void operator()(uint8_t* bytes) const noexcept { std::free(bytes); }
    };
    std::unique_ptr<uint8_t, Free> bytes_;
    uint64_t capacity_ = 0;
};

}  // namespace tarvik
