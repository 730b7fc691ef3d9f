#pragma once

#include <exception>
#include <string>

#include <miniz.h>

#include "archive/archive_finder.h"

namespace tarvik {

// An archive that is damaged or uses an unsupported feature. At a boundary it becomes E_FAIL.
class ArchiveError : public std::exception {
  public:
    const char* what() const noexcept override { return "damaged archive"; }
};

// A member as the archive's directory describes it.
struct MemberEntry {
    std::string rawName;  // see MemberName
    bool isNameUtf8;      // otherwise in the system's code page
    // Null if the entry contradicts itself; valid until the next Lookup.
    const mz_zip_archive_file_stat* statistics;

    // Throws an ArchiveError if there are none.
    const mz_zip_archive_file_stat& Statistics() const;
};

// The members of an archive in memory, in the order of its central directory. Only the directory is copied.
// Every operation may throw an ArchiveError.
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
    std::string NameOf(mz_uint index);

    mz_zip_archive zip_ = {};
    mz_zip_archive_file_stat statistics_ = {};
};

// The directory bit of the DOS attributes.
inline bool IsMarkedAsFolder(const mz_zip_archive_file_stat& member) {
    return (member.m_external_attr & 0x10) != 0;
}

}  // namespace tarvik
