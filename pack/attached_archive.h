#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "archive/archive_reader.h"
#include "archive/mapped_file.h"
#include "pack/application.h"

namespace tarvik {

// The archive attached to a program, as the host will find it.
class AttachedArchive {
  public:
    explicit AttachedArchive(const std::wstring& program);  // throws a Failure

    Bytes Content() const { return archive_; }
    // Whether the archive's offsets count from the start of the program, as other archivers expect.
    bool CountsFromStart() const { return archive_.size() == file_.Content().size(); }
    ArchiveReader& Reader() { return reader_; }

  private:
    MappedFile file_;
    Bytes archive_;
    ArchiveReader reader_;
};

[[noreturn]] void FailAsDamaged(const std::wstring& program);

// Appends an archive of the entries to a program. Throws a Failure, and then leaves the program incomplete.
void AttachArchive(const std::wstring& program, const std::vector<Entry>& entries);

// Reads the whole attached archive; throws a Failure if it is damaged or does not hold the entries.
void CheckAttached(const std::wstring& program, const std::vector<Entry>& entries);

}  // namespace tarvik
