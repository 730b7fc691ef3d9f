#include "cli/failure.h"

#include <cstdio>

#include "base/text.h"

namespace tarvik {

void FailAs(const std::wstring& what, HRESULT status) {
    std::wstring reason = SystemText(status);
    if (reason.empty()) {
        wchar_t number[16];
        swprintf(number, std::size(number), L"0x%08lX", static_cast<unsigned long>(status));
        reason = number;
    }
    throw Failure(what + L": " + reason + L".");
}

void FailWithLastError(const std::wstring& what) {
    FailAs(what, LastErrorStatus());
}

}  // namespace tarvik
