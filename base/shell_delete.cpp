#include "base/shell_delete.h"

#include <windows.h>
#include <shellapi.h>
#include <shlwapi.h>

#include "base/path.h"

namespace tarvik {

void DeleteFolder(const std::wstring& path) {
    wchar_t list[kPathLength] = {};
    // The list of names ends in two NULs.
    if (path.size() + 2 > kPathLength) return;
    path.copy(list, path.size());
    PathRemoveBackslashW(list);
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = list;
    operation.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI;
    SHFileOperationW(&operation);
}

}  // namespace tarvik
