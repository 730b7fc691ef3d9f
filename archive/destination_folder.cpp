#include "archive/destination_folder.h"

#include <windows.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "base/shell_delete.h"

namespace tarvik {

DestinationFolder::DestinationFolder(const std::wstring& path)
    : path_(path),
      removeAtEnd_(!PathFileExistsW(path.c_str()) &&
                   SHCreateDirectory(nullptr, path.c_str()) == ERROR_SUCCESS) {}

DestinationFolder::~DestinationFolder() {
    if (removeAtEnd_) DeleteFolder(path_);
}

}  // namespace tarvik
