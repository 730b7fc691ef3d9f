#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// Deletes a file, or a folder with its contents; `delayed` schedules the deletion for the next system start.
// Entries that cannot be deleted are skipped; the status is that of the last step, which deletes the path
// itself. A missing path is S_OK. A link to a folder is deleted without the contents of its target.
HRESULT DeletePath(const std::wstring& path, bool delayed);

}  // namespace tarvik
