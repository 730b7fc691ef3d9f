#pragma once

#include <miniz.h>

#include <string>

#include "archive/source_file.h"

namespace tarvik {

// Writes an archive through a function, which is told where each piece belongs: when an entry is complete,
// its header is written again. Every operation throws E_FAIL, also where the archive would leave the limits
// of the format that every program reads: 65,535 entries, and files and an archive below 4 GiB.
class ArchiveWriter {
  public:
    static constexpr size_t kMostEntries = 0xFFFF;
    // Anything but `count` makes the writer give up; an entry of a folder is also a write of 0 bytes.
    using Write = size_t (*)(void* target, mz_uint64 offset, const void* data, size_t count);

    // The archive begins at `start` of its target, and all its offsets count from the target's first byte.
    ArchiveWriter(Write write, void* target, mz_uint64 start = 0);
    ~ArchiveWriter() { mz_zip_writer_end(&zip_); }
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    void AddFile(const std::wstring& name, SourceFile& file);
    void AddFolder(const std::wstring& name);  // the name ends in a slash; its time is now
    void Finish();

  private:
    void Check(bool good);

    mz_zip_archive zip_ = {};
};

}  // namespace tarvik
