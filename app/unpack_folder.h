#pragma once

#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// The temporary folder of an unpacked archive, which only its user can read. A lock file beside it,
// `<folder>.lock`, stays open while this program lives: a lock that can be opened is that of a program that
// was killed, whose folder the next program removes.
class UnpackFolder {
  public:
    // Removes the folders in `temp` that killed programs of this user have left. Throws E_FAIL for a relative
    // path.
    static void RemoveAbandoned(const std::wstring& temp);

    // Makes the folder `temp`\`name`, and `temp` if it is missing. Throws; a folder that exists is a failure.
    void Create(const std::wstring& temp, const std::wstring& name);

    // Removes the folder if there is one, without a report. What is in use stays behind, as does the lock
    // then.
    void Remove();

    // Kept when the folder has been removed; empty if none was made.
    const std::wstring& Path() const { return path_; }

  private:
    std::wstring path_;
    UniqueHandle lock_;
};

}  // namespace tarvik
