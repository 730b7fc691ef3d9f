#include "cli/failure.h"

#include <cstdio>

#include "base/text.h"

namespace tarvik {

std::wstring Reason(HRESULT status) {
    std::wstring reason = SystemText(status);
    if (!reason.empty()) return reason;
    wchar_t number[16];
    swprintf(number, std::size(number), L"0x%08lX", static_cast<unsigned long>(status));
    return number;
}

void FailAs(const std::wstring& what, HRESULT status) {
    throw Failure(what + L": " + Reason(status) + L".");
}

void FailWithLastError(const std::wstring& what) {
    FailAs(what, LastFailureStatus());
}

}  // namespace tarvik
