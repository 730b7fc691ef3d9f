#include "control/bridge/failure.h"

#include <oleauto.h>

#include <cstdio>

#include "base/bstr.h"
#include "base/owners.h"
#include "base/status.h"

namespace tarvik {

namespace {

constexpr HRESULT kApplicationError = static_cast<HRESULT>(0x800A0000);  // with an error number of a language

std::wstring SystemText(HRESULT status) {
    wchar_t* buffer = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(status), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    const UniqueLocal owned(buffer);
    std::wstring text(buffer ? buffer : L"", length);
    while (!text.empty() && (text.back() <= L' ' || text.back() == L'.'))
        text.pop_back();
    return text.empty() ? L"The native call failed" : text;
}

}  // namespace

ExceptionInfo::~ExceptionInfo() {
    SysFreeString(bstrSource);
    SysFreeString(bstrDescription);
    SysFreeString(bstrHelpFile);
}

HRESULT ExceptionInfo::Status(HRESULT status) {
    if (status != DISP_E_EXCEPTION) return status;
    if (pfnDeferredFillIn) pfnDeferredFillIn(this);
    if (FAILED(scode)) return scode;
    return wCode ? kApplicationError | wCode : status;
}

std::wstring ExceptionInfo::Text(HRESULT status) const {
    if (SysStringLen(bstrDescription) > 0) return std::wstring(Bstr::View(bstrDescription));
    wchar_t number[16];
    swprintf(number, std::size(number), L" (0x%08lX)", static_cast<unsigned long>(status));
    return SystemText(status) + number;
}

bool IsUnreachable(HRESULT status) {
    return IsDisconnected(status) || status == RPC_E_CALL_REJECTED;
}

bool IsRefusal(HRESULT status) {
    return status == DISP_E_MEMBERNOTFOUND || status == DISP_E_BADPARAMCOUNT ||
           status == DISP_E_PARAMNOTOPTIONAL || status == DISP_E_PARAMNOTFOUND ||
           status == DISP_E_TYPEMISMATCH || status == E_NOTIMPL;
}

}  // namespace tarvik
