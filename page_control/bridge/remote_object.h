#pragma once

#include <windows.h>
#include <dispex.h>

#include <memory>
#include <string>
#include <vector>

#include "base/compiler.h"
#include "base/running.h"
#include "page_control/bridge/script_context.h"
#include "tarvik/com_object.h"

namespace tarvik {

// Lets a context recognise its own objects.
MIDL_INTERFACE("7C1F0A52-9E0B-4C56-9A1E-3B7A8C5D6E21")
IRemoteObject : public IUnknown {
  public:
    virtual ScriptContext* Context() const = 0;
    virtual int Number() const = 0;
};

}  // namespace tarvik

TARVIK_IID(tarvik::IRemoteObject, 0x7C1F0A52, 0x9E0B, 0x4C56, 0x9A, 0x1E, 0x3B, 0x7A, 0x8C, 0x5D, 0x6E, 0x21)

namespace tarvik {

// A live object or function of a page's script. Calls run in the page. If script throws, a call returns
// DISP_E_EXCEPTION with the exception's text; without an EXCEPINFO it returns 0x80020101, and the page's own
// error handlers run. After the end of the document everything returns RPC_E_DISCONNECTED.
class RemoteObject : public ComObject<As<IDispatchEx, IDispatchEx, IDispatch>, IRemoteObject,
                                      As<RunningReport, IRunnableObject>> {
  public:
    RemoteObject(std::shared_ptr<ScriptContext> context, int number, bool callable)
        : context_(std::move(context)), number_(number), callable_(callable) {}
    ~RemoteObject() override { context_->Release(number_); }

    ScriptContext* Context() const override { return context_.get(); }
    int Number() const override { return number_; }

    // IRunnableObject: whether the page can run script.
    STDMETHODIMP_(BOOL) IsRunning() override;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override;
    STDMETHODIMP GetDispID(BSTR name, DWORD flags, DISPID* out) override;
    STDMETHODIMP InvokeEx(DISPID id, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, IServiceProvider*) override;
    STDMETHODIMP DeleteMemberByName(BSTR name, DWORD) override;
    STDMETHODIMP DeleteMemberByDispID(DISPID id) override;
    // Only DISPID_VALUE: whether the object can be called.
    STDMETHODIMP GetMemberProperties(DISPID id, DWORD wanted, DWORD* properties) override;
    STDMETHODIMP GetMemberName(DISPID id, BSTR* out) override;
    STDMETHODIMP GetNextDispID(DWORD flags, DISPID id, DISPID* out) override;
    STDMETHODIMP GetNameSpaceParent(IUnknown**) override { return E_NOTIMPL; }

  private:
    HRESULT FindName(const wchar_t* name, DISPID* id);
    HRESULT Delete(const std::wstring& name);
    ScriptContext::Task TaskFor(DISPID id, WORD flags, const DISPPARAMS& parameters);
    std::string Arguments(const DISPPARAMS& parameters);

    std::shared_ptr<ScriptContext> context_;
    const int number_;
    const bool callable_;
    std::vector<DISPID> enumeration_;  // of the enumeration that started last
};

}  // namespace tarvik
