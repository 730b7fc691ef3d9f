#pragma once

#include <windows.h>

#include <ctime>
#include <string>
#include <string_view>
#include <unordered_set>

#include "tarvik/owners.h"

namespace tarvik {

// The folder that a run extracts into. It is made if it is missing, and one that was made here goes again
// with all that is in it, unless the run ends well.
class DestinationFolder {
  public:
    explicit DestinationFolder(const std::wstring& path);
    ~DestinationFolder();
    DestinationFolder(const DestinationFolder&) = delete;
    DestinationFolder& operator=(const DestinationFolder&) = delete;

    void Keep() noexcept { made_ = false; }

  private:
    const std::wstring& path_;
    bool made_;
};

// Where the members of one archive go.
class MemberOutput {
  public:
    MemberOutput(const std::wstring& folder, bool overWrite) : folder_(folder), overWrite_(overWrite) {}

    // The member's path. Its folders are made at once; whether that worked shows when it is opened.
    std::wstring Place(std::wstring_view name);
    // Throws the status of the failure: ERROR_ALREADY_EXISTS where a file lies in the place of a folder, or a
    // folder in the place of the file; the system has several errors for that.
    UniqueHandle Open(const std::wstring& path) const;

  private:
    bool MeetsOtherType(const std::wstring& path) const;

    const std::wstring& folder_;
    bool overWrite_;
    std::unordered_set<std::wstring> made_;
};

// A path that ends in this is a folder's.
bool IsFolderPath(std::wstring_view path);

// Creation and last write; the time of the last access stays.
void SetTimes(HANDLE file, std::time_t modified);

}  // namespace tarvik
