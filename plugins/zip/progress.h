#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string_view>

#include "base/variant.h"

namespace tarvik {

// Tells script's `progress` how a run goes on, and reads from its answers how it shall go on. Without a
// function everything goes on. A script error counts as no answer.
class Progress {
  public:
    enum class Answer { kGoOn, kSkip, kStop };

    // Both are borrowed.
    Progress(IDispatch* function, const VARIANT& context) : function_(function), context_(context) {}

    void SetTotal(ULONGLONG total) { total_ = total; }

    Answer MemberStarts(std::wstring_view name);
    // That many bytes were written; false ends the run.
    bool DataWritten(ULONGLONG count);

  private:
    IDispatch* function_;
    const VARIANT& context_;
    Variant name_;
    ULONGLONG total_ = 0;
    ULONGLONG processed_ = 0;
};

}  // namespace tarvik
