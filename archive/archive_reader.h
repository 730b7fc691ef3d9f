#pragma once

#include <windows.h>
#include <miniz.h>

#include <string>

#include "archive/archive_finder.h"

namespace tarvik {

// A member as the archive's directory describes it.
struct MemberEntry {
    std::wstring name;
    // Null if the entry contradicts itself; valid until the next Lookup.
    const mz_zip_archive_file_stat* statistics;

    // Throws E_FAIL if there are none.
    const mz_zip_archive_file_stat& Statistics() const;
};

// The members of an archive in memory, in the order of its central directory. Only the directory is copied.
// Every operation throws E_FAIL if the archive is damaged or uses an unsupported feature.
class ArchiveReader {
  public:
    using Write = size_t (*)(void* target, mz_uint64 offset, const void* data, size_t count);

    explicit ArchiveReader(Bytes archive);
    ~ArchiveReader() { mz_zip_reader_end(&zip_); }
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    mz_uint Count() { return mz_zip_reader_get_num_files(&zip_); }
    MemberEntry Lookup(mz_uint index);
    // Passes the content of a non-empty file to `write` in order, then verifies its size and checksum.
    void Extract(const mz_zip_archive_file_stat& member, Write write, void* target);

  private:
    bool ReadStatistics(mz_uint index);
    std::wstring NameOf(mz_uint index, UINT codePage);

    mz_zip_archive zip_ = {};
    mz_zip_archive_file_stat statistics_ = {};
};

// The directory bit of the DOS attributes.
inline bool IsMarkedAsFolder(const mz_zip_archive_file_stat& member) {
    return (member.m_external_attr & 0x10) != 0;
}

}  // namespace tarvik
