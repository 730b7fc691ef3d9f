#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// Stands for an object of the main thread towards one worker, and passes every call on. As an argument of
// such a call it becomes the object again, and objects in results are stood for in turn. So no object of
// script has a proxy of its own, which workers would share: Wine destroys a proxy twice when one worker takes
// it up while another drops the last reference to it.
class ForwardingDispatch : public ComObject<IDispatch> {
  public:
    explicit ForwardingDispatch(IDispatch* target) : target_(target) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return target_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** out) override {
        return target_->GetTypeInfo(index, locale, out);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        return target_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  protected:
    void* Find(REFIID iid) override;

  private:
    // What an object stands for, or the object itself.
    static IDispatch* Target(IDispatch* object);

    const ComPtr<IDispatch> target_;
};

}  // namespace tarvik
