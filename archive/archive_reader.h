#pragma once

#include <windows.h>
#include <miniz.h>

#include <string>

#include "archive/archive_finder.h"

namespace tarvik {

// A member as the archive's directory tells of it.
struct MemberEntry {
    std::wstring name;
    // Null where the entry contradicts itself; valid until the next look-up.
    const mz_zip_archive_file_stat* statistics;

    // Throws E_FAIL where there are none.
    const mz_zip_archive_file_stat& Statistics() const;
};

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
    MemberEntry Lookup(mz_uint index);
    // Hands the content of a file that is not empty out in order, then checks its size and sum.
    void Extract(const mz_zip_archive_file_stat& member, Write write, void* target);

  private:
    bool ReadStatistics(mz_uint index);
    std::wstring NameOf(mz_uint index, UINT codePage);

    mz_zip_archive zip_ = {};
    mz_zip_archive_file_stat statistics_ = {};
};

// A flag of the external attributes, from the days of DOS.
inline bool IsMarkedAsFolder(const mz_zip_archive_file_stat& member) {
    return (member.m_external_attr & 0x10) != 0;
}

}  // namespace tarvik
