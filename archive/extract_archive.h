#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "archive/archive_finder.h"

namespace tarvik {

// Receives the progress of an extraction and controls it.
class ExtractListener {
  public:
    enum class Answer { kContinue, kSkip, kStop };

    virtual ~ExtractListener() = default;
    virtual void SetTotal(ULONGLONG bytes) = 0;
    virtual Answer MemberStarts(std::wstring_view name) = 0;
    virtual bool DataWritten(ULONGLONG count) = 0;  // false ends the extraction
    virtual void WriteFails(HRESULT) noexcept {}    // why the extraction ends
};

// Extracts an archive in memory into a folder. Throws E_ABORT if the listener returned kStop, and an
// ArchiveError for anything that ends a member half-way. A failure removes the folder if it was created here;
// another one keeps what has been extracted.
void ExtractArchive(Bytes archive, const std::wstring& folder, bool overWrite, ExtractListener& listener);

}  // namespace tarvik
