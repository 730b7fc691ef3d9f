#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "archive/archive_reader.h"
#include "archive/mapped_file.h"
#include "pack/application.h"

namespace tarvik {

// The archive behind a program, as the host will find it.
class AttachedArchive {
  public:
    explicit AttachedArchive(const std::wstring& program);  // throws a Failure

    Bytes Content() const { return archive_; }
    // Whether the archive's offsets count from the start of the program, as other programs that open it
    // expect.
    bool CountsFromTheStart() const { return archive_.size() == file_.Content().size(); }
    ArchiveReader& Reader() { return reader_; }

  private:
    MappedFile file_;
    Bytes archive_;
    ArchiveReader reader_;
};

[[noreturn]] void FailAsBroken(const std::wstring& program);

// Puts an archive of the entries behind a program, which is not fit to be run if that fails; throws a
// Failure.
void AttachArchive(const std::wstring& program, const std::vector<Entry>& entries);

// Reads all of what was attached; throws a Failure if it is not what was to be.
void CheckAttached(const std::wstring& program, const std::vector<Entry>& entries);

}  // namespace tarvik
