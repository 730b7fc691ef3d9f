#include "archive/destination_folder.h"
#include "archive/extract_archive.h"
#include "archive/mapped_file.h"
#include "plugins/zip/progress.h"
#include "plugins/zip/zip_plugin.h"
#include "tarvik/status.h"

namespace tarvik {

void CZipPlugin::ExtractFile(const std::wstring& src, ULONG index, const ExtractOptions& options) {
    DestinationFolder folder(options.dest);
    const MappedFile file(src);
    const auto archive = FindArchive(file.Content(), index);
    if (!archive) throw StatusError(E_FAIL);
    ExtractMemory(*archive, options);
    folder.Commit();
}

void CZipPlugin::ExtractMemory(Bytes bytes, const ExtractOptions& options) {
    Progress progress(options.progress, *options.context);
    ExtractArchive(bytes, options.dest, options.overWrite, progress);
}

}  // namespace tarvik
