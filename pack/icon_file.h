#pragma once

#include <windows.h>

#include <string>

#include "archive/mapped_file.h"
#include "pack/resource_update.h"

namespace tarvik {

// An icon file: an icon in several sizes.
class IconFile {
  public:
    explicit IconFile(const std::wstring& path);  // throws a Failure if the file is missing or invalid

    // Replaces the images of an icon group. Removes its old images if it is the only group of the program.
    void AddTo(ResourceUpdate& update, WORD group) const;

  private:
    MappedFile file_;
};

}  // namespace tarvik
