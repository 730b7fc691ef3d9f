#include "archive/extract_archive.h"

#include <set>

#include "archive/archive_reader.h"
#include "archive/decoded_name.h"
#include "archive/destination_folder.h"
#include "archive/entry_output.h"
#include "archive/entry_path.h"
#include "base/write_file.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

struct EntryWriteContext {
    HANDLE file;
    ExtractListener& listener;
};

// Any result but `count` aborts the reader. The chunks arrive in order, so the offset is not needed.
size_t OnEntryData(void* target, mz_uint64, const void* data, size_t count) noexcept {
    const auto& context = *static_cast<const EntryWriteContext*>(target);
    if (const HRESULT status = Guard([&] { WriteAll(context.file, data, count); }); FAILED(status)) {
        context.listener.OnWriteError(status);
        return 0;
    }
    return Guard([&] { return context.listener.OnData(count) ? S_OK : E_ABORT; }) == S_OK ? count : 0;
}

// What has to be known about all entries before the first one is extracted.
struct Summary {
    ULONGLONG totalSize = 0;
    std::set<std::wstring> names;  // the safe ones
};

Summary Summarize(ArchiveReader& archive) {
    Summary summary;
    for (mz_uint index = 0; index < archive.Count(); ++index) {
        const ArchiveEntry entry = archive.Lookup(index);
        std::wstring name = DecodedName(entry);
        if (entry.stat && !IsMarkedAsFolder(*entry.stat)) summary.totalSize += entry.stat->m_uncomp_size;
        if (IsSafeEntryPath(name)) summary.names.insert(std::move(name));
    }
    return summary;
}

class Extraction {
  public:
    Extraction(ArchiveReader& archive, EntryOutput& output, ExtractListener& listener)
        : archive_(archive), output_(output), listener_(listener), summary_(Summarize(archive)) {}

    void Run() {
        listener_.SetTotal(summary_.totalSize);
        for (mz_uint index = 0; index < archive_.Count(); ++index)
            Extract(index);
    }

  private:
    void Extract(mz_uint index) {
        const ArchiveEntry entry = archive_.Lookup(index);
        const std::wstring name = DecodedName(entry);
        if (!entry.stat || !IsSafeEntryPath(name)) {
            // Creates no folder for it, and fails unless the listener skips it.
            if (BeginEntry(name)) throw ArchiveError();
            return;
        }
        const std::wstring path = output_.PreparePath(IsFolder(*entry.stat, name) ? name + L'/' : name);
        if (BeginEntry(name)) Write(*entry.stat, path);
    }

    // Announces the entry to the listener. False to skip it.
    bool BeginEntry(const std::wstring& name) {
        const auto action = listener_.OnEntry(name);
        if (action == ExtractListener::Action::kStop) throw StatusError(E_ABORT);
        return action == ExtractListener::Action::kContinue;
    }

    // Some archivers omit the trailing slash of a folder.
    bool IsFolder(const mz_zip_archive_file_stat& entry, const std::wstring& name) const {
        if (entry.m_uncomp_size > 0) return false;
        const std::wstring prefix = name + L'/';
        const auto inside = summary_.names.lower_bound(prefix);
        return inside != summary_.names.end() && inside->starts_with(prefix);
    }

    void Write(const mz_zip_archive_file_stat& entry, const std::wstring& path) {
        const UniqueHandle file = output_.Open(path);
        if (!IsFolderPath(path) && entry.m_uncomp_size > 0) {
            EntryWriteContext context{file.Get(), listener_};
            archive_.Extract(entry, OnEntryData, &context);
            SetEndOfFile(file.Get());
        }
        SetTimes(file.Get(), entry.m_time);
    }

    ArchiveReader& archive_;
    EntryOutput& output_;
    ExtractListener& listener_;
    const Summary summary_;
};

}  // namespace

void ExtractArchive(Bytes bytes, const std::wstring& dest, bool overWrite, ExtractListener& listener) {
    DestinationFolder folder(dest);
    ArchiveReader archive(bytes);
    EntryOutput output(dest, overWrite);
    Extraction(archive, output, listener).Run();
    folder.Commit();
}

}  // namespace tarvik
