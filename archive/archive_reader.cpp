#include "archive/archive_reader.h"

namespace tarvik {

namespace {

constexpr mz_uint kNameIsUtf8 = 0x800;

void Check(bool isValid) {
    if (!isValid) throw ArchiveError();
}

}  // namespace

ArchiveReader::ArchiveReader(Bytes archive) {
    Check(mz_zip_reader_init_mem(&zip_, archive.data(), archive.size(),
                                 MZ_ZIP_FLAG_DO_NOT_SORT_CENTRAL_DIRECTORY));
}

const mz_zip_archive_file_stat& ArchiveEntry::Stat() const {
    Check(stat != nullptr);
    return *stat;
}

// miniz fills in the flags even if it rejects the entry.
ArchiveEntry ArchiveReader::Lookup(mz_uint index) {
    const bool isValid = ReadStat(index);
    return {NameOf(index), (stat_.m_bit_flag & kNameIsUtf8) != 0, isValid ? &stat_ : nullptr};
}

bool ArchiveReader::ReadStat(mz_uint index) {
    // miniz adds these fields without checking for overflow: the 64-bit values of a damaged archive would
    // make it read outside the memory block.
    return mz_zip_reader_file_stat(&zip_, index, &stat_) && stat_.m_local_header_ofs <= zip_.m_archive_size &&
           stat_.m_comp_size <= zip_.m_archive_size;
}

// The name in `stat_` is truncated.
std::string ArchiveReader::NameOf(mz_uint index) {
    const mz_uint length = mz_zip_reader_get_filename(&zip_, index, nullptr, 0);
    std::string name(length, '\0');
    mz_zip_reader_get_filename(&zip_, index, name.data(), length);
    name.pop_back();
    return name;
}

void ArchiveReader::Extract(const mz_zip_archive_file_stat& entry, mz_file_write_func write, void* target) {
    // For these miniz reports success without calling `write`.
    Check(!entry.m_is_directory && entry.m_comp_size > 0);
    Check(mz_zip_reader_extract_to_callback(&zip_, entry.m_file_index, write, target, 0));
}

}  // namespace tarvik
