#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Writes archives, also with false or contradictory fields, which no real program does.
namespace tarvik {

struct ArchiveMember {
    std::string name;
    std::string content;
    std::uint16_t method = 8;  // 8 is deflate; the content is stored for any other
    std::uint16_t flags = 0;
    std::uint32_t attributes = 0;
    std::uint16_t time = 0;
    std::uint16_t date = 0x21;  // 1 January 1980
    std::optional<std::uint32_t> sum = {};
    std::optional<std::uint32_t> size = {};
    bool wide = false;  // 64-bit sizes and offsets
    // Written to the central directory as 64-bit values, with all ones in the usual fields.
    std::optional<std::uint64_t> packedSize64 = {};
    std::optional<std::uint64_t> headerOffset64 = {};
    std::optional<std::string> localName = {};  // in the member's local header
};

struct ArchiveLayout {
    std::string comment;
    std::uint32_t offsetBase = 0;  // added to every offset: the archive's start in its file
    std::optional<std::uint16_t> count = {};
    std::optional<std::uint32_t> directoryOffset = {};
    std::optional<std::uint32_t> directorySize = {};
};

std::string WriteArchive(const std::vector<ArchiveMember>& members, const ArchiveLayout& layout = {});

inline constexpr std::uint16_t kUtf8Name = 0x800;
inline constexpr std::uint16_t kEncrypted = 0x1;
inline constexpr std::uint16_t kSizesBehind = 0x8;  // the sizes and the sum follow the content

inline std::span<const std::uint8_t> BytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace tarvik
