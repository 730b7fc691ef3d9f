#include "archive/archive_finder.h"

#include <algorithm>
#include <cstddef>

namespace tarvik {

namespace {

constexpr std::uint32_t kEndSignature = 0x06054B50;
constexpr std::size_t kEndRecordSize = 22;
constexpr std::size_t kDirectorySizeAt = 12;
constexpr std::size_t kDirectoryOffsetAt = 16;
constexpr std::size_t kMinDistance = 4;
constexpr std::size_t kMaxDistance = 65'535;

struct Archive {
    std::size_t start;
    std::size_t length;
};

std::uint32_t ReadUint32(const std::uint8_t* at) {
    return at[0] | at[1] << 8 | at[2] << 16 | static_cast<std::uint32_t>(at[3]) << 24;
}

// How far before the end of the bytes the last end record starts; 0 if there is none within 64 KiB.
std::size_t EndRecordDistance(Bytes bytes) {
    const std::size_t farthest = std::min(kMaxDistance, bytes.size());
    for (std::size_t distance = kMinDistance; distance <= farthest; ++distance) {
        if (ReadUint32(bytes.data() + bytes.size() - distance) == kEndSignature) return distance;
    }
    return 0;
}

std::optional<Archive> LastArchive(Bytes bytes) {
    const std::size_t distance = EndRecordDistance(bytes);
    if (distance < kEndRecordSize) return std::nullopt;
    const std::uint8_t* const record = bytes.data() + bytes.size() - distance;
    const std::uint64_t length =
        std::uint64_t{ReadUint32(record + kDirectorySizeAt)} + ReadUint32(record + kDirectoryOffsetAt);
    if (length + distance > bytes.size()) return std::nullopt;
    return Archive{static_cast<std::size_t>(bytes.size() - distance - length),
                   static_cast<std::size_t>(length + kEndRecordSize)};
}

}  // namespace

std::optional<Bytes> FindArchive(Bytes file, std::uint32_t indexFromEnd) {
    std::uint64_t remaining = std::uint64_t{indexFromEnd} + 1;
    std::uint64_t walked = 0;
    std::size_t end = file.size();
    std::optional<Archive> found;
    while (remaining-- > 0) {
        found = LastArchive(file.first(end));
        if (!found) return std::nullopt;
        ++walked;
        end = found->start;
        if (end == 0) {
            // The walk starts over and repeats itself, so skip whole rounds.
            end = file.size();
            remaining %= walked;
        }
    }
    return found->start == 0 ? file : file.subspan(found->start, found->length);
}

}  // namespace tarvik
