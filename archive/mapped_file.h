#pragma once

#include <string>

#include "archive/archive_finder.h"
#include "base/owners.h"

namespace tarvik {

// A whole file, mapped for reading. If its medium is removed, reading a page that is not in memory raises
// EXCEPTION_IN_PAGE_ERROR, which nothing catches.
class MappedFile {
  public:
    explicit MappedFile(const std::wstring& path);  // throws the status of a failure

    Bytes Content() const { return {static_cast<const std::uint8_t*>(view_.Get()), size_}; }

  private:
    UniqueView view_;
    std::size_t size_ = 0;
};

}  // namespace tarvik
