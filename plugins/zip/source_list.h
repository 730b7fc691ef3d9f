#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "plugins/zip/archive_output.h"

namespace tarvik {

// Something to pack, and how long the path is that script named for it: its own, or that of a folder above.
struct Source {
    size_t rootLength;
    std::wstring path;
};

struct SourceList {
    std::vector<Source> sources;
    ULONGLONG totalSize = 0;  // of the files
};

// Finds everything below the folders, except the archive itself, and takes the files as they are, in the
// order of the paths; a folder stands behind its contents. Throws E_FAIL for a path that leads nowhere and
// for more than `most` sources, and the system's error where one of the paths cannot be opened. A folder
// further down that cannot be read counts as empty.
SourceList FindSources(const std::vector<std::wstring>& paths, size_t most, const ArchiveOutput& archive);

}  // namespace tarvik
