#pragma once

#include <windows.h>

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// What FindFirstFileW and FindNextFileW find, in the order the file system gives, without "." and "..".
class FolderReader {
  public:
    explicit FolderReader(const std::wstring& pattern);

    bool Next();  // goes to the next entry; false at the end, and when the system fails
    const WIN32_FIND_DATAW& Entry() const { return entry_; }
    HRESULT Status() const { return status_; }  // of the system's last failure, S_OK if there was none

  private:
    WIN32_FIND_DATAW entry_ = {};
    UniqueFind find_;
    HRESULT status_ = S_OK;
    bool isRead_ = false;  // whether `entry_` has been given out
};

inline bool IsFolder(const WIN32_FIND_DATAW& entry) {
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// A junction, a mount point or a symbolic link: what is in it belongs to another place. Clouds and the like
// mark their own files in a similar way, but those are no links.
bool IsLink(const WIN32_FIND_DATAW& entry);
bool IsLink(std::wstring path);

}  // namespace tarvik
