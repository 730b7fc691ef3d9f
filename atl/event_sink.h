#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

// The sink of a control's event interface. It forwards events to void Owner::OnEvent(DISPID, DISPPARAMS&). It
// holds no reference to the owner, which calls Detach before it is destroyed.
template <class Owner>
class EventSink : public ComObject<IDispatch> {
  public:
    EventSink(Owner* owner, REFIID events) : owner_(owner), events_(events) {}
    void Detach() { owner_ = nullptr; }

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) override {
        if (!owner_ || !parameters) return S_OK;
        const ComPtr<IUnknown> keepAlive(this->AsUnknown());  // the owner may close the connection
        return Guard([&] { owner_->OnEvent(id, *parameters); });
    }

  protected:
    void* FindInterface(REFIID iid) override {
        return iid == events_ ? AsUnknown() : ComObject::FindInterface(iid);
    }

  private:
    Owner* owner_;
    IID events_;
};

}  // namespace tarvik
