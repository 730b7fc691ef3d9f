#include "page_control/bridge/failure.h"

#include <oleauto.h>

#include <cstdio>

#include "base/status.h"
#include "base/text.h"
#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr HRESULT kApplicationError =
    static_cast<HRESULT>(0x800A0000);  // plus the error number of a scripting language

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
    _snwprintf(number, std::size(number), L" (0x%08lX)", static_cast<unsigned long>(status));
    const std::wstring text = SystemText(status);
    return (text.empty() ? L"The native call failed" : text) + number;
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
