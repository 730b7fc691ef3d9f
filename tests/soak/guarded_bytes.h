#pragma once

#include <windows.h>

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace tarvik {

// A copy of bytes between two pages that nobody may touch, tight against the one or the other, so that the
// first byte read beyond them is a fault.
class GuardedBytes {
  public:
    enum class Tight { kAtEnd, kAtStart };

    GuardedBytes(std::span<const std::uint8_t> bytes, Tight tight) : size_(bytes.size()) {
        const size_t room = (size_ + kPage - 1) / kPage * kPage;
        reserved_ =
            static_cast<std::uint8_t*>(VirtualAlloc(nullptr, room + 2 * kPage, MEM_RESERVE, PAGE_NOACCESS));
        VirtualAlloc(reserved_ + kPage, room ? room : kPage, MEM_COMMIT, PAGE_READWRITE);
        start_ = reserved_ + kPage + (tight == Tight::kAtEnd ? room - size_ : 0);
        if (size_) std::memcpy(start_, bytes.data(), size_);
    }
    ~GuardedBytes() { VirtualFree(reserved_, 0, MEM_RELEASE); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    std::span<const std::uint8_t> Content() const { return {start_, size_}; }

  private:
    static constexpr size_t kPage = 4096;

    std::uint8_t* reserved_;
    std::uint8_t* start_;
    size_t size_;
};

}  // namespace tarvik
