#pragma once

#include <windows.h>

#include <ctime>
#include <string>

#include "base/owners.h"

namespace tarvik {

// A file that is read from its start to its end. Others may go on writing to it meanwhile; if it turns out
// shorter or longer than it was when it was opened, that is a failure. One that was empty then is not read.
class SourceFile {
  public:
    explicit SourceFile(const std::wstring& path);  // throws E_FAIL

    ULONGLONG Size() const { return size_; }
    std::time_t Modified() const { return modified_; }
    ULONGLONG BytesRead() const { return read_; }

    // The bytes read, 0 at the end, and kFailed.
    static constexpr size_t kFailed = static_cast<size_t>(-1);
    size_t Read(void* buffer, size_t count);

  private:
    UniqueHandle file_;
    ULONGLONG size_ = 0;
    ULONGLONG read_ = 0;
    std::time_t modified_ = 0;
};

}  // namespace tarvik
