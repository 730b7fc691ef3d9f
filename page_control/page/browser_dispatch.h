#pragma once

#include "page_control/page/browser_members.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// IDispatch of a browser, by the system's type library of the interface.
class BrowserDispatch : public BrowserMembers {
  public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** out) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* argument) override;

  private:
    HRESULT LoadType();

    ComPtr<ITypeInfo> type_;
};

}  // namespace tarvik
