#pragma once

#include <string>

#include "plugins/zip/source_list.h"

namespace tarvik {

// The name of a source in the archive. A source from the option `src` is named by the last component of its
// path, the contents of a folder by their path relative to it. By design that path starts one character after
// the folder's, so a folder with a trailing backslash costs names their first letter. Throws E_FAIL if the
// name is invalid.
std::wstring EntryName(const Source& source, bool isFolder);

}  // namespace tarvik
