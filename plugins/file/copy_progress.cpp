#include "plugins/file/copy_progress.h"

#include <algorithm>

#include "tarvik/status.h"
#include "tarvik/variant.h"
#include "plugins/file/work_list.h"
#include "tarvik/properties.h"

namespace tarvik {

bool CopyProgress::Tell(ULONGLONG transferred) noexcept {
    if (!function_) return true;
    Variant answer;
    const HRESULT status = Guard([&] {
        const Variant processed = Variant::R8(static_cast<double>(std::min(done_ + transferred, total_)));
        const Variant total = Variant::R8(static_cast<double>(total_));
        return CallScriptFunction(function_, {&processed, &total, &context_}, &answer);
    });
    return SUCCEEDED(status) && !IsFalse(answer);
}

void CopyProgress::FileDone(const std::wstring& dest) {
    if (function_) done_ += SizeToCount(dest);
}

DWORD CALLBACK OnCopyProgress(LARGE_INTEGER, LARGE_INTEGER totalBytesTransferred, LARGE_INTEGER,
                              LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE, LPVOID progress) {
    auto* const told = static_cast<CopyProgress*>(progress);
    const bool goesOn = !told || told->Tell(static_cast<ULONGLONG>(totalBytesTransferred.QuadPart));
    return goesOn ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

}  // namespace tarvik
