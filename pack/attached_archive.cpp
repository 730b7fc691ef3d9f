#include "pack/attached_archive.h"

#include "archive/decoded_name.h"
#include "cli/failure.h"
#include "cli/interrupt.h"
#include "cli/progress_line.h"

namespace tarvik {

namespace {

Bytes Find(Bytes file, const std::wstring& program) {
    const auto archive = FindArchive(file, 0);
    if (!archive) throw Failure(L"\"" + program + L"\" has no archive attached.");
    return *archive;
}

ArchiveReader Open(Bytes archive, const std::wstring& program) {
    try {
        return ArchiveReader(archive);
    } catch (const ArchiveError&) {
        FailAsDamaged(program);
    }
}

size_t OnData(void* progress, mz_uint64, const void*, size_t count) noexcept {
    return Guard([&] { static_cast<ProgressLine*>(progress)->Advance(count); }) == S_OK ? count : 0;
}

// Extract verifies the size and checksum.
void CheckEntry(ArchiveReader& reader, mz_uint index, const Entry& expected, ProgressLine& progress) {
    const ArchiveEntry entry = reader.Lookup(index);
    if (DecodedName(entry) != expected.name) throw ArchiveError();
    if (entry.Stat().m_uncomp_size > 0) reader.Extract(entry.Stat(), OnData, &progress);
}

}  // namespace

AttachedArchive::AttachedArchive(const std::wstring& program)
    : file_(WithContext(L"\"" + program + L"\" cannot be read", [&] { return MappedFile(program); })),
      archive_(Find(file_.Content(), program)),
      reader_(Open(archive_, program)) {}

void FailAsDamaged(const std::wstring& program) {
    throw Failure(L"The archive in \"" + program + L"\" is damaged.");
}

void CheckAttached(const std::wstring& program, const std::vector<Entry>& entries) {
    AttachedArchive attached(program);
    ArchiveReader& reader = attached.Reader();
    if (!attached.CountsFromStart() || reader.Count() != entries.size())
        throw Failure(L"The archive attached to \"" + program + L"\" cannot be found.");
    ProgressLine progress(L"Checking", TotalSize(entries));
    try {
        for (mz_uint index = 0; index < reader.Count(); ++index)
            CheckEntry(reader, index, entries[index], progress);
    } catch (const ArchiveError&) {
        Interrupt::ThrowIfRequested();
        FailAsDamaged(program);
    }
}

}  // namespace tarvik
