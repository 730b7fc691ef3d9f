#include "plugins/stream/growing_block.h"

#include <algorithm>
#include <cstring>

namespace tarvik {

namespace {

constexpr uint32_t kMebibyte = 0x100000;

// A tenth of the block in whole mebibytes, and at least one: few copies of what is large. The step is kept to
// 32 bits, so a block of 40 GiB starts with small steps again; that is intended.
uint64_t Step(uint64_t capacity) {
    const auto tenth = static_cast<uint32_t>(capacity / 10 + kMebibyte - 1) & ~(kMebibyte - 1);
    return std::max(tenth, kMebibyte);
}

}  // namespace

bool GrowingBlock::Reserve(uint64_t needed, uint64_t kept) noexcept {
    if (needed <= capacity_) return true;
    const uint64_t step = Step(capacity_);
    if (needed > PTRDIFF_MAX - step) return false;
    const uint64_t capacity = (needed + step - 1) / step * step;
    // Zeroed by the system, which does that for a large block only where it is touched.
    decltype(bytes_) grown(static_cast<uint8_t*>(std::calloc(capacity, 1)));
    if (!grown) return false;
    if (kept > 0) std::memcpy(grown.get(), bytes_.get(), kept);
    bytes_ = std::move(grown);
    capacity_ = capacity;
    return true;
}

}  // namespace tarvik
