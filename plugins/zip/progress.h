#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string_view>

#include "archive/extract_archive.h"
#include "tarvik/variant.h"

namespace tarvik {

// Reports an extraction to `progress`, whose result can skip an entry or stop. Script errors are ignored.
class Progress : public ExtractListener {
  public:
    // Borrows both. The function may be null.
    Progress(IDispatch* function, const VARIANT& context) : function_(function), context_(context) {}

    void SetTotal(ULONGLONG total) override { total_ = total; }

    Action OnEntry(std::wstring_view name) override;
    bool OnData(ULONGLONG count) override;

  private:
    IDispatch* function_;
    const VARIANT& context_;
    Variant name_;
    ULONGLONG total_ = 0;
    ULONGLONG processed_ = 0;
};

}  // namespace tarvik
