#pragma once

#include <windows.h>

#include <string>

#include "base/owners.h"

namespace tarvik {

// Enumerates the files and folders that FindFirstFileW finds for a pattern, in the order of the file system,
// without "." and "..".
class FolderReader {
  public:
    explicit FolderReader(const std::wstring& pattern);

    // Moves to the next entry; the first call to the first one. False at the end and after an error.
    bool Next();
    const WIN32_FIND_DATAW& Entry() const { return entry_; }
    // The error that ended the enumeration, otherwise S_OK.
    HRESULT Status() const { return status_; }

  private:
    WIN32_FIND_DATAW entry_ = {};
    UniqueFind find_;
    HRESULT status_ = S_OK;
    bool isConsumed_ = false;  // whether Next has returned the entry that FindFirstFile found
};

inline bool IsFolder(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// Whether this is a junction, a mount point or a symbolic link. Other reparse points, such as the files of
// cloud storage, are not links.
bool IsLink(const WIN32_FIND_DATAW& entry);
bool IsLink(std::wstring path);

}  // namespace tarvik
