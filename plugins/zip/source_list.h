#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "plugins/zip/archive_output.h"

namespace tarvik {

// A file or folder to pack.
struct Source {
    size_t rootLength;  // of the path in the option `src`: this one or that of a parent
    std::wstring path;
};

struct SourceList {
    std::vector<Source> sources;
    ULONGLONG totalSize = 0;  // of the files
};

// Lists the files in `paths` and the contents of the folders, except the archive itself, in the order of the
// paths; a folder follows its contents. Throws E_FAIL for a missing path and for more than `limit` sources,
// and the system's status if one of the paths cannot be opened. A subfolder that cannot be read counts as
// empty.
SourceList FindSources(const std::vector<std::wstring>& paths, size_t limit, const ArchiveOutput& archive);

}  // namespace tarvik
