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

// An entry of the archive's central directory.
struct ArchiveEntry {
    std::string rawName;  // see DecodedName
    bool isNameUtf8;      // otherwise the name is in the system's code page
    // Null if the entry is invalid. Points into the reader; valid until the next Lookup.
    const mz_zip_archive_file_stat* stat;

    // Throws an ArchiveError if the entry is invalid.
    const mz_zip_archive_file_stat& Stat() const;
};

// The entries of an archive in memory, in the order of its central directory. Only the directory is copied.
// Every operation may throw an ArchiveError.
class ArchiveReader {
  public:
    explicit ArchiveReader(Bytes archive);
    ~ArchiveReader() { mz_zip_reader_end(&zip_); }
    ArchiveReader(const ArchiveReader&) = delete;
    ArchiveReader& operator=(const ArchiveReader&) = delete;

    mz_uint Count() { return mz_zip_reader_get_num_files(&zip_); }
    ArchiveEntry Lookup(mz_uint index);
    // Passes the content of a non-empty file to `write` in order, then verifies its size and checksum. Any
    // result of `write` but the number of bytes aborts the reader.
    void Extract(const mz_zip_archive_file_stat& entry, mz_file_write_func write, void* target);

  private:
    bool ReadStat(mz_uint index);
    std::string NameOf(mz_uint index);

    mz_zip_archive zip_ = {};
    mz_zip_archive_file_stat stat_ = {};
};

// The directory bit of the DOS attributes.
inline bool IsMarkedAsFolder(const mz_zip_archive_file_stat& entry) {
    return (entry.m_external_attr & 0x10) != 0;
}

}  // namespace tarvik
