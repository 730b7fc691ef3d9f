#pragma once

#include <windows.h>

#include <string>

namespace tarvik {

// Deletes a file, or a folder with what is in it; `delayed` leaves it to the next start of the system. What
// cannot be deleted stays, and the status is that of the last step, the one for the path itself. A path that
// is not there is deleted already: S_OK. A link to a folder goes alone, without what it leads to.
HRESULT DeletePath(const std::wstring& path, bool delayed);

}  // namespace tarvik
