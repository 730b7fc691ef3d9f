#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// A small writer of archives that can tell lies, which no real program does.
namespace tarvik {

struct ArchiveMember {
    std::string name;
    std::string content;
    std::uint16_t method = 8;  // 0: stored; any other but 8 is only claimed, the content is stored
    std::uint16_t flags = 0;
    std::uint32_t attributes = 0;
    std::uint16_t time = 0;
    std::uint16_t date = 0x21;  // 1 January 1980
    std::optional<std::uint32_t> sum = {};
    std::optional<std::uint32_t> size = {};
    bool wide = false;  // sizes and offsets told in 64 bits
    // Written into the central directory as 64-bit values, with all ones in the places of the usual fields.
    std::optional<std::uint64_t> packedSize64 = {};
    std::optional<std::uint64_t> headerOffset64 = {};
    std::optional<std::string> localName = {};  // in the member's own header, which lies before its content
};

struct ArchiveLayout {
    std::string comment;
    std::uint32_t offsetBase = 0;  // added to every offset: where the archive starts in its file
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
