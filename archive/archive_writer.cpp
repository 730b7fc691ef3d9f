#include "archive/archive_writer.h"

#include <algorithm>
#include <cstdint>

#include "tarvik/status.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

// Some programs cannot read sizes that follow the data, so the local headers are completed afterwards.
constexpr mz_uint kLevel = 6 | static_cast<mz_uint>(MZ_ZIP_FLAG_WRITE_HEADER_SET_SIZE);

// The times that an archive can express, in any time zone. miniz fails for others.
std::time_t ClampToArchiveRange(std::time_t time) {
    constexpr std::time_t kDay = 24 * 60 * 60;
    constexpr std::time_t kStartOf1980 = 315'532'800;
    constexpr std::time_t kStartOf2108 = 4'354'819'200;
    return std::clamp(time, kStartOf1980 + kDay, kStartOf2108 - 2 * kDay);
}

template <class Number>
void Append(std::string& bytes, Number number) {
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);  // little-endian, like the machine
}

// The name of an entry. A name outside ASCII is stored twice, because some programs ignore the UTF-8 flag
// unless there is a Unicode Path extra field.
struct EncodedName {
    explicit EncodedName(const std::wstring& wide) : name(Narrow(wide)) {
        if (std::ranges::all_of(name, [](char character) { return character >= 0; })) return;
        constexpr std::uint16_t kUnicodePath = 0x7075;
        constexpr std::uint8_t kVersion = 1;
        const size_t size = sizeof kVersion + sizeof(std::uint32_t) + name.size();
        if (size > 0xFFFF - 4) throw StatusError(E_FAIL);
        Append(extra, kUnicodePath);
        Append(extra, static_cast<std::uint16_t>(size));
        Append(extra, kVersion);
        const auto* bytes = reinterpret_cast<const mz_uint8*>(name.data());
        Append(extra, static_cast<std::uint32_t>(mz_crc32(MZ_CRC32_INIT, bytes, name.size())));
        extra += name;
    }

    mz_uint ExtraSize() const { return static_cast<mz_uint>(extra.size()); }

    std::string name;
    std::string extra;
};

size_t OnFileRead(void* file, mz_uint64, void* buffer, size_t count) {
    return static_cast<SourceFile*>(file)->Read(buffer, count);
}

}  // namespace

ArchiveWriter::ArchiveWriter(mz_file_write_func write, void* target, mz_uint64 start) {
    zip_.m_pWrite = write;
    zip_.m_pIO_opaque = target;
    Check(mz_zip_writer_init_v2(&zip_, start, 0));
}

void ArchiveWriter::AddFile(const std::wstring& name, SourceFile& file) {
    Check(file.Size() < MZ_UINT32_MAX);
    const EncodedName entry(name);
    const std::time_t modified = ClampToArchiveRange(file.Modified());
    Check(mz_zip_writer_add_read_buf_callback(&zip_, entry.name.c_str(), OnFileRead, &file, file.Size(),
                                              &modified, nullptr, 0, kLevel, entry.extra.data(),
                                              entry.ExtraSize(), entry.extra.data(), entry.ExtraSize()));
}

void ArchiveWriter::AddFolder(const std::wstring& name) {
    const EncodedName entry(name);
    Check(mz_zip_writer_add_mem_ex_v2(&zip_, entry.name.c_str(), nullptr, 0, nullptr, 0, kLevel, 0, 0,
                                      nullptr, entry.extra.data(), entry.ExtraSize(), entry.extra.data(),
                                      entry.ExtraSize()));
}

void ArchiveWriter::Finish() {
    Check(mz_zip_writer_finalize_archive(&zip_));
}

// Beyond a limit miniz silently switches to ZIP64.
void ArchiveWriter::Check(bool succeeded) {
    if (!succeeded || mz_zip_is_zip64(&zip_)) throw StatusError(E_FAIL);
}

}  // namespace tarvik
