#pragma once

#include <miniz.h>

#include <string>

#include "archive/archive_finder.h"

namespace tarvik {

// The members of an archive that lies in memory, in the order of its central directory. Nothing of the
// archive is copied but the directory. Every operation throws E_FAIL for what is broken or not supported.
class ArchiveReader {
  public:
    using Write = size_t (*)(void* target, mz_uint64 offset, const void* data, size_t count);

    explicit ArchiveReader(Bytes archive);
    ~ArchiveReader() { mz_zip_reader_end(&zip_); }
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    mz_uint Count() { return mz_zip_reader_get_num_files(&zip_); }
    // Null where the directory's entry contradicts itself; valid until another member is looked up.
    const mz_zip_archive_file_stat* FindStatistics(mz_uint index);
    const mz_zip_archive_file_stat& Statistics(mz_uint index);
    std::wstring Name(mz_uint index);  // also of a member without statistics
    // Hands the content of a file that is not empty out in order, then checks its size and sum.
    void Extract(const mz_zip_archive_file_stat& member, Write write, void* target);

  private:
    mz_zip_archive zip_ = {};
    mz_zip_archive_file_stat statistics_ = {};
};

// A flag of the external attributes, from the days of DOS.
inline bool IsMarkedAsFolder(const mz_zip_archive_file_stat& member) {
    return (member.m_external_attr & 0x10) != 0;
}

}  // namespace tarvik
