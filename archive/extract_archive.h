#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "archive/archive_finder.h"

namespace tarvik {

// Receives the progress of an extraction and controls it.
class ExtractListener {
  public:
    enum class Action { kContinue, kSkip, kStop };

    virtual ~ExtractListener() = default;
    virtual void SetTotal(ULONGLONG bytes) = 0;  // once, first
    virtual Action OnEntry(std::wstring_view name) = 0;
    virtual bool OnData(ULONGLONG count) = 0;       // `count` bytes were written; false stops
    virtual void OnWriteError(HRESULT) noexcept {}  // the extraction stops because of it
};

// Extracts an archive in memory into a folder. Throws E_ABORT if OnEntry returned kStop, the status of a file
// that cannot be opened, and an ArchiveError for anything that interrupts an entry. After a failure a folder
// that was created here is removed; an existing one keeps what has been extracted.
void ExtractArchive(Bytes archive, const std::wstring& folder, bool overWrite, ExtractListener& listener);

}  // namespace tarvik
