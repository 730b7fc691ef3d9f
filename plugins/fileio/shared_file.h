#pragma once

#include <windows.h>

#include <mutex>

#include "tarvik/owners.h"

namespace tarvik {

// An open file that a script object shares with the transfers it has started, with one position for all. Any
// thread may use it, also while another closes it: a handle that is closed fails each use with the status of
// a bad handle, and its number, which the system gives out again, is never touched. Each use waits for the
// one under way. Failures throw their
// status.
class SharedFile {
  public:
    explicit SharedFile(UniqueHandle handle = UniqueHandle()) : handle_(std::move(handle)) {}

    bool IsOpen();
    void Close();

    // Bytes moved: fewer than asked for, and at last 0, at the end of the file; or on a full disk.
    DWORD Read(void* buffer, DWORD count);
    DWORD Write(const void* bytes, DWORD count);
    // The new position; `origin` is FILE_BEGIN, FILE_CURRENT or FILE_END.
    LONGLONG Seek(LONGLONG offset, DWORD origin);
    LONGLONG Size();
    // The position stays, also beyond the new end. A failure leaves it at the new size.
    void Resize(LONGLONG size);

  private:
    HANDLE Handle() const;
    LONGLONG Move(LONGLONG offset, DWORD origin) const;

    std::mutex lock_;
    UniqueHandle handle_;
};

}  // namespace tarvik
