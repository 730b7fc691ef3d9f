#pragma once

#include <string>

#include "plugins/zip/source_list.h"

namespace tarvik {

// What a source is called in the archive: a source that script named itself by its last component, everything
// else by its path from the folder that script named, one character behind it. So a folder that was written
// with a backslash at its end costs the names directly below it their first letter; that is intended. Throws
// E_FAIL for a name that would be none.
std::wstring EntryName(const Source& source, bool isFolder);

}  // namespace tarvik
