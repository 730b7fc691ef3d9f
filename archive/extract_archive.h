#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "archive/archive_finder.h"

namespace tarvik {

// Hears how an extraction goes on, and steers it.
class ExtractListener {
  public:
    enum class Answer { kGoOn, kSkip, kStop };

    virtual ~ExtractListener() = default;
    virtual void SetTotal(ULONGLONG bytes) = 0;
    virtual Answer MemberStarts(std::wstring_view name) = 0;
    virtual bool DataWritten(ULONGLONG count) = 0;  // false ends the run
    virtual void WriteFails(HRESULT) noexcept {}    // why the run ends now
};

// Extracts what lies in memory into a folder. A failure is thrown: E_ABORT if the listener answered kStop,
// and E_FAIL for all that ends a member half-way. Then a folder that was made for it is gone again, and
// another one keeps what was extracted so far.
void ExtractArchive(Bytes archive, const std::wstring& folder, bool overWrite, ExtractListener& listener);

}  // namespace tarvik
