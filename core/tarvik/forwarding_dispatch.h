#pragma once

#include <windows.h>
#include <oaidl.h>

#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// Represents an object of the main thread for one worker, and forwards every call to it. A forwarder among
// the arguments of a call is replaced by its object; an object in a result is replaced by a forwarder of its
// own. So workers never share the proxy of a script object: under Wine, a proxy is destroyed twice if one
// worker retains it while another releases the last reference.
//
// MarshaledObject uses it; authors of libraries do not need it.
class ForwardingDispatch : public ComObject<IDispatch> {
  public:
    explicit ForwardingDispatch(IDispatch* target) : target_(target) {}  // not null

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
    void* FindInterface(REFIID iid) override;

  private:
    // The object that a forwarder represents; any other object is returned unchanged.
    static IDispatch* Target(IDispatch* object);

    const ComPtr<IDispatch> target_;
};

}  // namespace tarvik
