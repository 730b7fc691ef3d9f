#pragma once

#include <windows.h>

#include <ctime>
#include <string>

#include "tarvik/owners.h"

namespace tarvik {

// A file opened for reading, up to the size that it had when it was opened. Other programs may write to it
// meanwhile: data that they append is not read, and a read fails if they truncate the file.
class SourceFile {
  public:
    explicit SourceFile(const std::wstring& path);  // throws E_FAIL

    ULONGLONG Size() const { return size_; }
    std::time_t Modified() const { return modified_; }
    ULONGLONG BytesRead() const { return read_; }

    bool HasGrown() const;  // since it was opened

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
