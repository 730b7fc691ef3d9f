#pragma once

#include <windows.h>

#include <string>

#include "archive/mapped_file.h"
#include "pack/resource_update.h"

namespace tarvik {

// An icon file: one picture in several sizes.
class IconFile {
  public:
    explicit IconFile(const std::wstring& path);  // throws a Failure if the file is missing or invalid

    // Makes the pictures those of a group. If it is the only group of the program, its old ones are removed.
    void AddTo(ResourceUpdate& update, WORD group) const;

  private:
    MappedFile file_;
};

}  // namespace tarvik
