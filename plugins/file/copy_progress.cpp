#include "plugins/file/copy_progress.h"

#include <algorithm>

#include "plugins/file/work_list.h"
#include "tarvik/properties.h"
#include "tarvik/variant.h"

namespace tarvik {

bool CopyProgress::Report(ULONGLONG transferred) noexcept {
    if (!function_) return true;
    bool shouldContinue = false;
    (void)Guard([&] {
        const auto processed = static_cast<double>(std::min(done_ + transferred, total_));
        const auto total = static_cast<double>(total_);
        shouldContinue = !IsFalse(function_(processed, total, context_));
    });
    return shouldContinue;
}

void CopyProgress::FileFinished(const std::wstring& dest) {
    if (function_) done_ += CountedSize(dest);
}

DWORD CALLBACK OnCopyProgress(LARGE_INTEGER, LARGE_INTEGER totalBytesTransferred, LARGE_INTEGER,
                              LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE, LPVOID progress) {
    auto* const reporter = static_cast<CopyProgress*>(progress);
    const bool shouldContinue =
        !reporter || reporter->Report(static_cast<ULONGLONG>(totalBytesTransferred.QuadPart));
    return shouldContinue ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

}  // namespace tarvik
