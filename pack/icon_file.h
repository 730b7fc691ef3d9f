#pragma once

#include <windows.h>

#include <string>

#include "archive/mapped_file.h"
#include "pack/resource_update.h"

namespace tarvik {

// A file of icons: one picture in several sizes.
class IconFile {
  public:
    explicit IconFile(const std::wstring& path);  // throws a Failure for a file that is none, or broken

    // The pictures become those of a group. What was in the only group of the program goes.
    void PutInto(ResourceUpdate& update, WORD group) const;

  private:
    MappedFile file_;
};

}  // namespace tarvik
