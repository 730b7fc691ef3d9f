#pragma once

#include <windows.h>
#include <urlmon.h>

namespace tarvik {

// The security manager of a host that loads only its own application: every URL is in the local machine zone,
// and every action is allowed. CWebBrowserHost derives from it and implements IUnknown.
class SecurityPolicy : public IInternetSecurityManager {
  public:
    STDMETHODIMP SetSecuritySite(IInternetSecurityMgrSite*) override { return E_NOTIMPL; }
    STDMETHODIMP GetSecuritySite(IInternetSecurityMgrSite**) override { return E_NOTIMPL; }
    STDMETHODIMP MapUrlToZone(LPCWSTR url, DWORD* zone, DWORD flags) override;
    STDMETHODIMP GetSecurityId(LPCWSTR url, BYTE*, DWORD*, DWORD_PTR) override;
    STDMETHODIMP ProcessUrlAction(LPCWSTR url, DWORD action, BYTE* policy, DWORD size, BYTE*, DWORD, DWORD,
                                  DWORD) override;
    STDMETHODIMP QueryCustomPolicy(LPCWSTR, REFGUID, BYTE**, DWORD*, BYTE*, DWORD, DWORD) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP SetZoneMapping(DWORD, LPCWSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetZoneMappings(DWORD, IEnumString**, DWORD) override { return E_NOTIMPL; }
};

}  // namespace tarvik
