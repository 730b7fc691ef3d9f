#include "tests/plugins/zip/archive_writer.h"

#include <miniz.h>

#include <memory>

namespace tarvik {

namespace {

constexpr std::uint32_t kAllOnes = 0xFFFFFFFF;

void Put16(std::string& out, std::uint32_t value) {
    out += {static_cast<char>(value), static_cast<char>(value >> 8)};
}

void Put32(std::string& out, std::uint32_t value) {
    Put16(out, value);
    Put16(out, value >> 16);
}

void Put64(std::string& out, std::uint64_t value) {
    Put32(out, static_cast<std::uint32_t>(value));
    Put32(out, static_cast<std::uint32_t>(value >> 32));
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

// The fields that the local header and the central directory share, from the version on.
std::string CommonFields(const ArchiveMember& member, std::uint32_t packedSize) {
    const auto* content = reinterpret_cast<const unsigned char*>(member.content.data());
    std::string out;
    Put16(out, 20);
    Put16(out, member.flags);
    Put16(out, member.method);
    Put16(out, member.time);
    Put16(out, member.date);
    Put32(out, member.sum.value_or(
                   static_cast<std::uint32_t>(mz_crc32(MZ_CRC32_INIT, content, member.content.size()))));
    Put32(out, packedSize);
    Put32(out, member.size.value_or(static_cast<std::uint32_t>(member.content.size())));
    Put16(out, static_cast<std::uint32_t>(member.name.size()));
    return out;
}

std::string LocalHeader(const ArchiveMember& member, std::uint32_t packedSize) {
    std::string out = "PK\3\4" + CommonFields(member, packedSize);
    Put16(out, 0);
    return out + member.name;
}

std::string WideFields(const ArchiveMember& member) {
    std::string values;
    if (member.packedSize64) Put64(values, *member.packedSize64);
    if (member.headerOffset64) Put64(values, *member.headerOffset64);
    if (values.empty()) return {};
    std::string out;
    Put16(out, 1);
    Put16(out, static_cast<std::uint32_t>(values.size()));
    return out + values;
}

std::string DirectoryEntry(const ArchiveMember& member, std::uint32_t packedSize, std::uint32_t offset) {
    const std::string wide = WideFields(member);
    std::string out = "PK\1\2";
    Put16(out, 20);
    out += CommonFields(member, member.packedSize64 ? kAllOnes : packedSize);
    Put16(out, static_cast<std::uint32_t>(wide.size()));
    out.append(6, '\0');  // comment length, disk, internal attributes
    Put32(out, member.attributes);
    Put32(out, member.headerOffset64 ? kAllOnes : offset);
    return out + member.name + wide;
}

}  // namespace

std::string WriteArchive(const std::vector<ArchiveMember>& members, const ArchiveLayout& layout) {
    std::string out;
    std::string directory;
    for (ArchiveMember member : members) {
        const std::string packed = Pack(member);
        const auto packedSize = static_cast<std::uint32_t>(packed.size());
        if (member.wide) {
            member.packedSize64 = packed.size();
            member.headerOffset64 = layout.offsetBase + out.size();
        }
        directory +=
            DirectoryEntry(member, packedSize, layout.offsetBase + static_cast<std::uint32_t>(out.size()));
        out += LocalHeader(member, packedSize) + packed;
    }
    const std::uint32_t directoryOffset = layout.offsetBase + static_cast<std::uint32_t>(out.size());
    const auto count = layout.count.value_or(static_cast<std::uint16_t>(members.size()));
    out += directory;
    out.append("PK\5\6\0\0\0\0", 8);
    Put16(out, count);
    Put16(out, count);
    Put32(out, layout.directorySize.value_or(static_cast<std::uint32_t>(directory.size())));
    Put32(out, layout.directoryOffset.value_or(directoryOffset));
    Put16(out, static_cast<std::uint32_t>(layout.comment.size()));
    return out + layout.comment;
}

}  // namespace tarvik
