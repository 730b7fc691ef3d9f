#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tarvik {

// Called for each entry that passes the filter: full path, attributes, size in bytes (0 for folders).
using WalkCallback = std::function<HRESULT(const std::wstring& path, DWORD attributes, ULONGLONG size)>;

// Whether a walk enters a link to a folder. A link that is not entered is reported as the folder it looks
// like.
enum class FolderLinks { kEnter, kLeave };

// Walks a folder in the order the file system gives. `pattern` (base/pattern.h) is searched for in the whole
// path, with the case of letters; null or one that does not compile filters nothing. Folders are reported
// after their contents. E_ABORT from the callback ends the walk and is its status; otherwise the status is
// that of the last callback or nested walk, E_FAIL if there was none, or the system's error if the folder
// cannot be read.
HRESULT WalkFolder(const std::wstring& folder, const wchar_t* pattern, bool recursive,
                   const WalkCallback& callback, FolderLinks links = FolderLinks::kEnter);

}  // namespace tarvik
