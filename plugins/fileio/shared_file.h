#pragma once

#include <windows.h>

#include <mutex>

#include "tarvik/owners.h"

namespace tarvik {

// An open file that the plug-in object shares with its transfers. All use one position. Thread-safe: every
// use holds a lock, so that none touches a handle that another thread has closed and the system has reused.
// After Close every use throws ERROR_INVALID_HANDLE. Other failures throw the system's status.
class SharedFile {
  public:
    explicit SharedFile(UniqueHandle handle = UniqueHandle()) : handle_(std::move(handle)) {}

    bool IsOpen();
    void Close();

    // Return the number of bytes transferred, which is smaller than `count` at the end of the file or if the
    // disk is full.
    DWORD Read(void* buffer, DWORD count);
    DWORD Write(const void* bytes, DWORD count);
    // Returns the new position. `origin` is FILE_BEGIN, FILE_CURRENT or FILE_END.
    LONGLONG Seek(LONGLONG offset, DWORD origin);
    LONGLONG Size();
    // Keeps the position, even beyond the new end. After a failure the position is the new size.
    void Resize(LONGLONG size);

  private:
    HANDLE Handle() const;
    LONGLONG Move(LONGLONG offset, DWORD origin) const;

    std::mutex lock_;
    UniqueHandle handle_;
};

}  // namespace tarvik
