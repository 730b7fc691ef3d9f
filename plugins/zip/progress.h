#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string_view>

#include "archive/extract_archive.h"
#include "tarvik/variant.h"

namespace tarvik {

// Tells script's `progress` how a run goes on, and reads from its answers how it shall go on. Without a
// function everything goes on. A script error counts as no answer.
class Progress : public ExtractListener {
  public:
    // Both are borrowed.
    Progress(IDispatch* function, const VARIANT& context) : function_(function), context_(context) {}

    void SetTotal(ULONGLONG total) override { total_ = total; }

    Answer MemberStarts(std::wstring_view name) override;
    bool DataWritten(ULONGLONG count) override;

  private:
    IDispatch* function_;
    const VARIANT& context_;
    Variant name_;
    ULONGLONG total_ = 0;
    ULONGLONG processed_ = 0;
};

}  // namespace tarvik
