#include "plugins/zip/progress.h"

#include <algorithm>
#include <limits>

#include "tarvik/properties.h"

namespace tarvik {

namespace {

// JavaScript engines have no 64-bit integers, so larger counts become the largest 32-bit one.
Variant Count(ULONGLONG bytes) {
    constexpr ULONGLONG kMost = std::numeric_limits<ULONG>::max();
    return Variant::UI4(static_cast<ULONG>(std::min(bytes, kMost)));
}

}  // namespace

Progress::Answer Progress::MemberStarts(std::wstring_view name) {
    if (!function_) return Answer::kContinue;
    name_ = Variant::Text(name);
    Variant answer;
    CallScriptFunction(function_, {&name_}, &answer);
    if (IsFalse(answer)) return Answer::kStop;
    return answer.Is(VT_I4) && answer.lVal == 0 ? Answer::kSkip : Answer::kContinue;
}

bool Progress::DataWritten(ULONGLONG count) {
    if (!function_) return true;
    processed_ += count;
    const Variant total = Count(total_);
    const Variant processed = Count(processed_);
    Variant answer;
    CallScriptFunction(function_, {&name_, &total, &processed, &context_}, &answer);
    return !IsFalse(answer);
}

}  // namespace tarvik
