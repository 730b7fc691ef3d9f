#include "plugins/stream/growing_block.h"

#include <algorithm>
#include <cstring>

namespace tarvik {

namespace {

constexpr uint32_t kMebibyte = 0x100000;
// Reserving addresses is cheap; moving a large block costs more than filling it.
constexpr uint64_t kAddressesPerByte = 16;

// A tenth of the block, rounded up to whole mebibytes, but at least one. By design the step wraps at 32 bits,
// so it starts from one mebibyte again for a block of 40 GiB.
uint64_t Step(uint64_t capacity) {
    const auto tenth = static_cast<uint32_t>(capacity / 10 + kMebibyte - 1) & ~(kMebibyte - 1);
    return std::max(tenth, kMebibyte);
}

UniquePages ReserveAddresses(uint64_t size) {
    return UniquePages(VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS));
}

bool Commit(uint8_t* from, uint64_t size) {
    return VirtualAlloc(from, size, MEM_COMMIT, PAGE_READWRITE) != nullptr;
}

}  // namespace

bool GrowingBlock::Reserve(uint64_t needed, uint64_t used) noexcept {
    if (needed <= capacity_) return true;
    const uint64_t step = Step(capacity_);
    if (needed > INT64_MAX / kAddressesPerByte - step) return false;
    const uint64_t capacity = (needed + step - 1) / step * step;
    if (capacity <= addresses_) {
        if (!Commit(Data() + capacity_, capacity - capacity_)) return false;
    } else {
        uint64_t addresses = capacity * kAddressesPerByte;
        UniquePages pages = ReserveAddresses(addresses);
        if (!pages) pages = ReserveAddresses(addresses = capacity);
        if (!pages || !Commit(static_cast<uint8_t*>(pages.Get()), capacity)) return false;
        if (used > 0) std::memcpy(pages.Get(), Data(), used);
        pages_ = std::move(pages);
        addresses_ = addresses;
    }
    capacity_ = capacity;
    return true;
}

}  // namespace tarvik
