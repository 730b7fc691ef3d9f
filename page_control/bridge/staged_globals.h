#pragma once

#include <windows.h>
#include <dispex.h>

#include <string>
#include <utility>
#include <vector>

#include "tarvik/com_object.h"
#include "tarvik/variant.h"

namespace tarvik {

// The global object of a window before its first document. Stores values for that document; they cannot be
// read. Names are created with fdexNameEnsure.
class StagedGlobals : public ComObject<As<IDispatchEx, IDispatchEx, IDispatch>> {
  public:
    using Value = std::pair<std::wstring, Variant>;
    std::vector<Value> Take() { return std::exchange(values_, {}); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* out) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO*, IServiceProvider*) override;
    STDMETHODIMP DeleteMemberByName(BSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP DeleteMemberByDispID(DISPID) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberProperties(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMemberName(DISPID, BSTR*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP GetNextDispID(DWORD, DISPID, DISPID*) override { return S_FALSE; }
    STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  private:
    std::vector<Value> values_;
};

}  // namespace tarvik
