#pragma once

#include <string>

#include <miniz.h>

#include "archive/source_file.h"

namespace tarvik {

// Writes an archive through a callback that can seek: a complete entry's header is written again. Every
// failure throws E_FAIL. So does an archive that would need ZIP64, which not every program reads: more than
// 65,535 entries, or a file or archive of 4 GiB or more.
class ArchiveWriter {
  public:
    static constexpr size_t kMaxEntries = 0xFFFF;

    // Any result of `write` but the number of bytes aborts the writer. A folder includes a write of 0 bytes.
    // The archive begins at offset `start` of the target; the offsets in it count from the target's first
    // byte.
    ArchiveWriter(mz_file_write_func write, void* target, mz_uint64 start = 0);
    ~ArchiveWriter() { mz_zip_writer_end(&zip_); }
    ArchiveWriter(const ArchiveWriter&) = delete;
    ArchiveWriter& operator=(const ArchiveWriter&) = delete;

    void AddFile(const std::wstring& name, SourceFile& file);
    void AddFolder(const std::wstring& name);  // `name` ends in a slash; dated with the current time
    void Finish();

  private:
    void Check(bool succeeded);

    mz_zip_archive zip_ = {};
};

}  // namespace tarvik
