#include "plugins/zip/progress.h"

#include <algorithm>
#include <limits>

#include "tarvik/properties.h"

namespace tarvik {

namespace {

// JavaScript engines have no 64-bit integers, so larger counts become the largest 32-bit one.
Variant Count(ULONGLONG bytes) {
    constexpr ULONGLONG kMax = std::numeric_limits<ULONG>::max();
    return Variant::UI4(static_cast<ULONG>(std::min(bytes, kMax)));
}

}  // namespace

Progress::Action Progress::OnEntry(std::wstring_view name) {
    if (!function_) return Action::kContinue;
    name_ = Variant::Text(name);
    Variant result;
    CallScriptFunction(function_, {&name_}, &result);
    if (IsFalse(result)) return Action::kStop;
    return result.Is(VT_I4) && result.lVal == 0 ? Action::kSkip : Action::kContinue;
}

bool Progress::OnData(ULONGLONG count) {
    if (!function_) return true;
    processed_ += count;
    const Variant total = Count(total_);
    const Variant processed = Count(processed_);
    Variant result;
    CallScriptFunction(function_, {&name_, &total, &processed, &context_}, &result);
    return !IsFalse(result);
}

}  // namespace tarvik
