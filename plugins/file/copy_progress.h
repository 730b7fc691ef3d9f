#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

#include "tarvik/script_object.h"

namespace tarvik {

// Reports the bytes transferred so far to the page: progress(processed, total, context). Without a function
// it reports and counts nothing.
class CopyProgress {
  public:
    // Borrows the context.
    CopyProgress(const ScriptObject& function, const VARIANT& context, ULONGLONG total)
        : function_(function), context_(context), total_(total) {}

    // `transferred` counts the bytes of the current file. False cancels the operation: the function returned
    // false or failed, or its page has been destroyed.
    bool Report(ULONGLONG transferred) noexcept;
    // Adds a finished file to the bytes transferred.
    void FileFinished(const std::wstring& dest);

  private:
    const ScriptObject function_;
    const VARIANT& context_;
    ULONGLONG total_;
    ULONGLONG done_ = 0;
};

// An LPPROGRESS_ROUTINE. `progress` is a CopyProgress, or null.
DWORD CALLBACK OnCopyProgress(LARGE_INTEGER totalFileSize, LARGE_INTEGER totalBytesTransferred,
                              LARGE_INTEGER streamSize, LARGE_INTEGER streamBytesTransferred,
                              DWORD streamNumber, DWORD reason, HANDLE source, HANDLE destination,
                              LPVOID progress);

}  // namespace tarvik
