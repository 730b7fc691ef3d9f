#pragma once

#include <windows.h>

#include <ctime>
#include <string>
#include <string_view>
#include <unordered_set>

#include "tarvik/owners.h"

namespace tarvik {

// Creates the files and folders of an archive's entries in a folder.
class EntryOutput {
  public:
    EntryOutput(const std::wstring& folder, bool overWrite) : folder_(folder), overWrite_(overWrite) {}

    // Returns the path for an entry and creates its folders. Reports no failure: Open will fail.
    std::wstring PreparePath(std::wstring_view name);
    // Throws the status of a failure. A file in place of a folder, or a folder in place of a file, is
    // ERROR_ALREADY_EXISTS, where the system reports various errors.
    UniqueHandle Open(const std::wstring& path) const;

  private:
    bool HasTypeConflict(const std::wstring& path) const;

    const std::wstring& folder_;
    bool overWrite_;
    std::unordered_set<std::wstring> createdFolders_;
};

// Whether the path ends in a slash.
bool IsFolderPath(std::wstring_view path);

// Sets the creation and last-write times, not the last-access time.
void SetTimes(HANDLE file, std::time_t modified);

}  // namespace tarvik
