#pragma once

#include <windows.h>

#include <ctime>
#include <string>
#include <string_view>
#include <unordered_set>

#include "tarvik/owners.h"

namespace tarvik {

// The folder that an archive is extracted into. It is created if it is missing; unless Keep is called, the
// destructor then removes it with its contents.
class DestinationFolder {
  public:
    explicit DestinationFolder(const std::wstring& path);
    ~DestinationFolder();
    DestinationFolder(const DestinationFolder&) = delete;
    DestinationFolder& operator=(const DestinationFolder&) = delete;

    void Keep() noexcept { created_ = false; }

  private:
    const std::wstring& path_;
    bool created_;
};

// The files and folders that the members of one archive become.
class MemberOutput {
  public:
    MemberOutput(const std::wstring& folder, bool overWrite) : folder_(folder), overWrite_(overWrite) {}

    // Returns the member's path and creates its folders. If that fails, Open fails later.
    std::wstring PreparePath(std::wstring_view name);
    // Throws the status of a failure: ERROR_ALREADY_EXISTS if there is a file in place of a folder or the
    // other way round, for which the system has several errors.
    UniqueHandle Open(const std::wstring& path) const;

  private:
    bool HasTypeConflict(const std::wstring& path) const;

    const std::wstring& folder_;
    bool overWrite_;
    std::unordered_set<std::wstring> created_;
};

// Whether the path ends in a slash.
bool IsFolderPath(std::wstring_view path);

// Sets the times of creation and last write, not that of the last access.
void SetTimes(HANDLE file, std::time_t modified);

}  // namespace tarvik
