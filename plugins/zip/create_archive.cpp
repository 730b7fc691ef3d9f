#include <memory>

#include "archive/archive_writer.h"
#include "plugins/zip/archive_output.h"
#include "plugins/zip/entry_name.h"
#include "plugins/zip/source_list.h"
#include "plugins/zip/zip_plugin.h"
#include "tarvik/properties.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr ULONGLONG kMaxBytes = MZ_UINT32_MAX;

std::unique_ptr<ArchiveOutput> OpenOutput(const CreateOptions& options) {
    if (options.stream) return std::make_unique<StreamOutput>(options.stream);
    return std::make_unique<FileOutput>(options.dest, options.overWrite);
}

// Calls `progress` after each write. By design, unlike in `unzip`, sizes are VT_UI8 and the second one is
// always 0.
struct ArchiveWriteContext {
    ArchiveOutput& output;
    IDispatch* progress;
    const VARIANT& context;
    Variant total;
    Variant processingFile = Variant::Text({});
    Variant processeedSize = Variant::UI8(0);

    bool ReportProgress() const {  // false to abort
        if (!progress) return true;
        Variant result;
        CallScriptFunction(progress, {&processingFile, &total, &processeedSize, &context}, &result);
        return !IsFalse(result);
    }
};

constexpr size_t kAbort = static_cast<size_t>(-1);

size_t OnArchiveWrite(void* target, mz_uint64 offset, const void* data, size_t count) noexcept {
    size_t written = 0;
    const HRESULT status = Guard([&] {
        const auto& write = *static_cast<ArchiveWriteContext*>(target);
        if (count > kMaxBytes || offset > kMaxBytes - count) return E_FAIL;
        written = write.output.WriteAt(offset, data, static_cast<DWORD>(count));
        return write.ReportProgress() ? S_OK : E_FAIL;
    });
    return status == S_OK ? written : kAbort;
}

void AddEntry(ArchiveWriter& archive, const Source& source) {
    // By design a source that has been deleted meanwhile becomes a folder: INVALID_FILE_ATTRIBUTES has all
    // bits set.
    const bool isFolder = (GetFileAttributesW(source.path.c_str()) & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const std::wstring name = EntryName(source, isFolder);
    if (isFolder) {
        archive.AddFolder(name);
    } else {
        SourceFile file(source.path);
        archive.AddFile(name, file);
    }
}

}  // namespace

void CZipPlugin::CreateArchive(const CreateOptions& options) {
    const auto output = OpenOutput(options);
    const SourceList list = FindSources(options.sources, ArchiveWriter::kMaxEntries, *output);
    ArchiveWriteContext write{*output, options.progress, *options.context, Variant::UI8(list.totalSize)};
    ArchiveWriter archive(OnArchiveWrite, &write);
    for (const Source& source : list.sources) {
        write.processingFile = Variant::Text(source.path);
        AddEntry(archive, source);
    }
    archive.Finish();
    output->Commit();
}

}  // namespace tarvik
