#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace tarvik {

// Tells script's `progress` how many bytes of a run are done: progress(processed, total, context). Without a
// function nothing is told and nothing is counted.
class CopyProgress {
  public:
    // Function and context are borrowed.
    CopyProgress(IDispatch* function, const VARIANT& context, ULONGLONG total)
        : function_(function), context_(context), total_(total) {}

    // That many bytes of the file under way are done; false ends the run. Script says so by false or by an
    // error, and so does a page that has gone.
    bool Tell(ULONGLONG transferred) noexcept;
    // A file has arrived.
    void FileDone(const std::wstring& dest);

  private:
    IDispatch* function_;
    const VARIANT& context_;
    ULONGLONG total_;
    ULONGLONG done_ = 0;
};

// An LPPROGRESS_ROUTINE. `progress` is a CopyProgress; without one all goes on.
DWORD CALLBACK OnCopyProgress(LARGE_INTEGER totalFileSize, LARGE_INTEGER totalBytesTransferred,
                              LARGE_INTEGER streamSize, LARGE_INTEGER streamBytesTransferred,
                              DWORD streamNumber, DWORD reason, HANDLE source, HANDLE destination,
                              LPVOID progress);

}  // namespace tarvik
