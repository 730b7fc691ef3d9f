#pragma once

#include <windows.h>

#include <ctime>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// A file that is read up to the size that it has when it is opened. Other programs may write to it meanwhile:
// what they append is not read, and a read fails if they truncate it.
class SourceFile {
  public:
    explicit SourceFile(const std::wstring& path);  // throws E_FAIL

    ULONGLONG Size() const { return size_; }
    std::time_t Modified() const { return modified_; }
    ULONGLONG BytesRead() const { return read_; }

    bool HasGrown() const;

    // Returns the number of bytes read, 0 at the end, or kFailed.
    static constexpr size_t kFailed = static_cast<size_t>(-1);
    size_t Read(void* buffer, size_t count);

  private:
    UniqueHandle file_;
    ULONGLONG size_ = 0;
    ULONGLONG read_ = 0;
    std::time_t modified_ = 0;
};

}  // namespace tarvik
