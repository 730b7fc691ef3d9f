#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tarvik {

// Called for each matching entry. `path` begins with the walked folder; `size` is in bytes, 0 for folders.
using WalkCallback = std::function<HRESULT(const std::wstring& path, DWORD attributes, ULONGLONG size)>;

// Whether a walk follows links to folders. A link that it skips is reported like a folder.
enum class LinkPolicy { kFollow, kSkip };

// Reports the contents of a folder in the order of the file system, folders after their contents. Only
// entries whose path matches `pattern` (base/pattern.h) are reported; null, and a pattern that does not
// compile, match all.
//
// If the callback returns E_ABORT, the walk ends and returns E_ABORT. Otherwise it returns the system's error
// if the folder cannot be read, or the status of the last callback or nested folder, or E_FAIL if there was
// neither.
HRESULT WalkFolder(const std::wstring& folder, const wchar_t* pattern, bool recursive,
                   const WalkCallback& callback, LinkPolicy links = LinkPolicy::kFollow);

}  // namespace tarvik
