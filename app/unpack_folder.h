#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// The temporary folder of an unpacked archive, which only the current user can access. A lock file beside it,
// `<folder>.lock`, stays open while this process runs. If a later process can open it, this one was killed,
// and the later process removes the folder.
class UnpackFolder {
  public:
    // Removes the folders in `temp` that killed processes of this user left. Throws E_FAIL for a relative
    // path.
    static void RemoveAbandoned(const std::wstring& temp);

    // Creates the folder `temp`\`name`, and `temp` if it is missing. Throws on failure, and if the folder
    // exists.
    void Create(const std::wstring& temp, const std::wstring& name);

    // Removes the folder, if there is one. Leaves files in use and the lock behind.
    void Remove();

    // Empty if no folder was created; unchanged by Remove.
    const std::wstring& Path() const { return path_; }

  private:
    std::wstring path_;
    UniqueHandle lock_;
};

}  // namespace tarvik
