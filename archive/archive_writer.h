#pragma once

#include <string>

#include <miniz.h>

#include "archive/source_file.h"

namespace tarvik {

// Writes an archive through a function that gets the offset of each chunk: when an entry is complete, its
// header is written again. Every operation throws E_FAIL, also if the archive would exceed the limits of the
// format that every program reads: 65,535 entries, files and an archive below 4 GiB.
class ArchiveWriter {
  public:
    static constexpr size_t kMostEntries = 0xFFFF;
    // Any result but `count` aborts the writer. The entry of a folder includes a write of 0 bytes.
    using Write = size_t (*)(void* target, mz_uint64 offset, const void* data, size_t count);

    // The archive begins at offset `start` of the target. All its offsets count from the target's first byte.
    ArchiveWriter(Write write, void* target, mz_uint64 start = 0);
    ~ArchiveWriter() { mz_zip_writer_end(&zip_); }
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    void AddFile(const std::wstring& name, SourceFile& file);
    void AddFolder(const std::wstring& name);  // the name ends in a slash; the time is the current time
    void Finish();

  private:
    void Check(bool succeeded);

    mz_zip_archive zip_ = {};
};

}  // namespace tarvik
