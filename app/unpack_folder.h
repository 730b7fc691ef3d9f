#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// The temporary folder of an unpacked archive, which only its user can read. A lock file beside it,
// `<folder>.lock`, stays open while this process runs. A lock file that can be opened was left by a killed
// process, and the next process removes its folder.
class UnpackFolder {
  public:
    // Removes the folders in `temp` that killed processes of this user have left. Throws E_FAIL for a
    // relative path.
    static void RemoveAbandoned(const std::wstring& temp);

    // Creates the folder `temp`\`name`, and `temp` if it is missing. Throws, also if the folder exists.
    void Create(const std::wstring& temp, const std::wstring& name);

    // Removes the folder if there is one. If files in it are in use, they and the lock stay behind.
    void Remove();

    // Empty if no folder was created; unchanged by Remove.
    const std::wstring& Path() const { return path_; }

  private:
    std::wstring path_;
    UniqueHandle lock_;
};

}  // namespace tarvik
