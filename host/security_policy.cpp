#include "host/security_policy.h"

#include <cstring>

#include "app/log/log.h"

namespace tarvik {

STDMETHODIMP SecurityPolicy::MapUrlToZone(LPCWSTR url, DWORD* zone, DWORD flags) {
    TARVIK_TRACE_TEXT("CWebBrowserHost::MapUrlToZone", L"%s %08X", url, flags);
    if (!zone) return E_POINTER;
    *zone = URLZONE_LOCAL_MACHINE;
    return S_OK;
}

STDMETHODIMP SecurityPolicy::GetSecurityId(LPCWSTR url, BYTE*, DWORD*, DWORD_PTR) {
    TARVIK_TRACE_TEXT("CWebBrowserHost::GetSecurityId", L"%s", url);
    return INET_E_DEFAULT_ACTION;
}

STDMETHODIMP SecurityPolicy::ProcessUrlAction(LPCWSTR url, DWORD action, BYTE* policy, DWORD size, BYTE*,
                                              DWORD, DWORD, DWORD) {
    TARVIK_TRACE_TEXT("CWebBrowserHost::ProcessUrlAction", L"%s Action: %08X", url, action);
    constexpr DWORD kAllow = URLPOLICY_ALLOW;
    if (policy && size >= sizeof kAllow) std::memcpy(policy, &kAllow, sizeof kAllow);
    return S_OK;
}

}  // namespace tarvik
