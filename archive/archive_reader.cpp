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

const mz_zip_archive_file_stat& MemberEntry::Statistics() const {
    Check(statistics);
    return *statistics;
}

// The flags are filled in even if the other fields are refused.
MemberEntry ArchiveReader::Lookup(mz_uint index) {
    const bool isValid = ReadStatistics(index);
    return {NameOf(index), (statistics_.m_bit_flag & kNameIsUtf8) != 0, isValid ? &statistics_ : nullptr};
}

bool ArchiveReader::ReadStatistics(mz_uint index) {
    // The reader adds these without checking for overflow: the 64-bit fields of a damaged archive would make
    // it read outside the memory block.
    return mz_zip_reader_file_stat(&zip_, index, &statistics_) &&
           statistics_.m_local_header_ofs <= zip_.m_archive_size &&
           statistics_.m_comp_size <= zip_.m_archive_size;
}

// The statistics truncate long names.
std::string ArchiveReader::NameOf(mz_uint index) {
    const mz_uint length = mz_zip_reader_get_filename(&zip_, index, nullptr, 0);
    std::string name(length, '\0');
    mz_zip_reader_get_filename(&zip_, index, name.data(), length);
    name.pop_back();
    return name;
}

void ArchiveReader::Extract(const mz_zip_archive_file_stat& member, Write write, void* target) {
    // The reader skips these and reports success.
    Check(!member.m_is_directory && member.m_comp_size > 0);
    Check(mz_zip_reader_extract_to_callback(&zip_, member.m_file_index, write, target, 0));
}

}  // namespace tarvik
