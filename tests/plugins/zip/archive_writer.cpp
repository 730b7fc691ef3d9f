#include "tests/plugins/zip/archive_writer.h"

#include <initializer_list>
#include <memory>
#include <utility>

#include <miniz.h>

namespace tarvik {

namespace {

constexpr std::uint32_t kAllOnes = 0xFFFFFFFF;

// Numbers, each with its width in bytes, the lowest byte first.
std::string Fields(std::initializer_list<std::pair<int, std::uint64_t>> numbers) {
    std::string out;
    for (const auto& [width, number] : numbers) {
        for (int i = 0; i < width; ++i)
            out += static_cast<char>(number >> 8 * i);
    }
    return out;
}

std::string Pack(const ArchiveMember& member) {
    if (member.method != 8) return member.content;
    size_t length = 0;
    const std::unique_ptr<void, void (*)(void*)> packed(
        tdefl_compress_mem_to_heap(member.content.data(), member.content.size(), &length,
                                   TDEFL_DEFAULT_MAX_PROBES),
        mz_free);
    return {static_cast<const char*>(packed.get()), length};
}

std::uint32_t SumOf(const ArchiveMember& member) {
    const auto* content = reinterpret_cast<const unsigned char*>(member.content.data());
    const auto sum = static_cast<std::uint32_t>(mz_crc32(MZ_CRC32_INIT, content, member.content.size()));
    return member.sum.value_or(sum);
}

std::uint32_t SizeOf(const ArchiveMember& member) {
    return member.size.value_or(static_cast<std::uint32_t>(member.content.size()));
}

// The fields that the local header and the central directory share, from the version on.
std::string CommonFields(const ArchiveMember& member, std::uint32_t packedSize) {
    return Fields({{2, 20},
                   {2, member.flags},
                   {2, member.method},
                   {2, member.time},
                   {2, member.date},
                   {4, SumOf(member)},
                   {4, packedSize},
                   {4, SizeOf(member)},
                   {2, member.name.size()}});
}

std::string MemberWithHeader(const ArchiveMember& member, const std::string& packed) {
    const auto packedSize = static_cast<std::uint32_t>(packed.size());
    const bool sizesBehind = (member.flags & kSizesBehind) != 0;
    ArchiveMember local = member;
    local.name = member.localName.value_or(member.name);
    if (sizesBehind) local.sum = local.size = 0;
    std::string out =
        "PK\3\4" + CommonFields(local, sizesBehind ? 0 : packedSize) + Fields({{2, 0}}) + local.name + packed;
    if (sizesBehind) out += "PK\7\b" + Fields({{4, SumOf(member)}, {4, packedSize}, {4, SizeOf(member)}});
    return out;
}

std::string WideFields(const ArchiveMember& member) {
    std::string values;
    if (member.packedSize64) values += Fields({{8, *member.packedSize64}});
    if (member.headerOffset64) values += Fields({{8, *member.headerOffset64}});
    return values.empty() ? values : Fields({{2, 1}, {2, values.size()}}) + values;
}

std::string DirectoryEntry(const ArchiveMember& member, std::uint32_t packedSize, std::uint64_t offset) {
    const std::string wide = WideFields(member);
    // Between the lengths and the attributes: the comment's length, the disk, internal attributes.
    return "PK\1\2" + Fields({{2, 20}}) + CommonFields(member, member.packedSize64 ? kAllOnes : packedSize) +
           Fields({{2, wide.size()},
                   {6, 0},
                   {4, member.attributes},
                   {4, member.headerOffset64 ? kAllOnes : offset}}) +
           member.name + wide;
}

}  // namespace

std::string WriteArchive(const std::vector<ArchiveMember>& members, const ArchiveLayout& layout) {
    std::string out;
    std::string directory;
    for (ArchiveMember member : members) {
        const std::string packed = Pack(member);
        const auto packedSize = static_cast<std::uint32_t>(packed.size());
        const std::uint64_t offset = layout.offsetBase + out.size();
        if (member.wide) {
            member.packedSize64 = packed.size();
            member.headerOffset64 = offset;
        }
        directory += DirectoryEntry(member, packedSize, offset);
        out += MemberWithHeader(member, packed);
    }
    const auto directoryOffset = static_cast<std::uint32_t>(layout.offsetBase + out.size());
    const auto directorySize = static_cast<std::uint32_t>(directory.size());
    const auto count = layout.count.value_or(static_cast<std::uint16_t>(members.size()));
    return out + directory + "PK\5\6" +
           Fields({{4, 0},
                   {2, count},
                   {2, count},
                   {4, layout.directorySize.value_or(directorySize)},
                   {4, layout.directoryOffset.value_or(directoryOffset)},
                   {2, layout.comment.size()}}) +
           layout.comment;
}

}  // namespace tarvik
