#include "tarvik/marshaled_object.h"

#include <combaseapi.h>

#include <cstring>
#include <vector>

#include "tarvik/arguments.h"
#include "tarvik/com_object.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// Represents an object of the main thread for one worker, and forwards every call to it. A forwarder among
// the arguments of a call is replaced by its object; an object in a result is replaced by a forwarder of its
// own. So workers never share the proxy of a script object: under Wine, a proxy is destroyed twice if one
// worker retains it while another releases the last reference.
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

// An interface id that only objects of this class in this module answer. Every library has its own copy of
// the class, perhaps of another version, so the id contains an address in this module.
GUID OwnClass() {
    GUID id = {0x5F0B61C3, 0x8A42, 0x4E0D, {}};
    const auto* const code = reinterpret_cast<const void*>(&OwnClass);
    static_assert(sizeof code == sizeof id.Data4);
    std::memcpy(id.Data4, &code, sizeof code);
    return id;
}

// Replaces an object in a result by a forwarder; an object without IDispatch becomes VT_EMPTY.
void ForwardResult(VARIANT& result) {
    if ((result.vt != VT_DISPATCH && result.vt != VT_UNKNOWN) || !result.punkVal) return;
    Variant forwarded;
    if (const auto object = ObjectIn(result))
        forwarded = Variant::Object(MakeCom<ForwardingDispatch>(object.Get()).Get());
    forwarded.MoveInto(&result);
}

void* ForwardingDispatch::FindInterface(REFIID iid) {
    return iid == OwnClass() ? this : ComObject::FindInterface(iid);
}

IDispatch* ForwardingDispatch::Target(IDispatch* object) {
    ComPtr<ForwardingDispatch> forwarder;
    if (object) object->QueryInterface(OwnClass(), reinterpret_cast<void**>(forwarder.GetAddressOf()));
    return forwarder ? forwarder->target_.Get() : object;
}

STDMETHODIMP ForwardingDispatch::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                        UINT* badArgument) {
    if (!parameters) return E_INVALIDARG;
    return Guard([&] {
        // A bitwise copy: the caller keeps the ownership of the values.
        std::vector<VARIANT> arguments(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
        for (VARIANT& argument : arguments)
            if (argument.vt == VT_DISPATCH) argument.pdispVal = Target(argument.pdispVal);
        DISPPARAMS forwarded = *parameters;
        forwarded.rgvarg = arguments.data();
        const HRESULT status =
            target_->Invoke(id, iid, locale, flags, &forwarded, result, exception, badArgument);
        if (result) ForwardResult(*result);
        return status;
    });
}

}  // namespace

MarshaledObject::MarshaledObject(IDispatch* object) {
    if (!object) return;
    const auto forwarder = MakeCom<ForwardingDispatch>(object);
    ThrowIfFailed(
        CoMarshalInterThreadInterfaceInStream(IID_IDispatch, forwarder.Get(), stream_.GetAddressOf()));
}

MarshaledObject& MarshaledObject::operator=(MarshaledObject&& other) noexcept {
    if (this != &other) {
        Get();
        object_ = std::exchange(other.object_, ScriptObject());
        // Not move assignment: that of mingw-w64's ComPtr copies.
        stream_.Swap(other.stream_);
    }
    return *this;
}

const ScriptObject& MarshaledObject::Get() noexcept {
    if (stream_) {
        ComPtr<IDispatch> object;
        // The call releases the stream even if it fails.
        CoGetInterfaceAndReleaseStream(stream_.Detach(), IID_IDispatch,
                                       reinterpret_cast<void**>(object.GetAddressOf()));
        object_ = object.Get();
    }
    return object_;
}

// Only IDispatch objects can be marshaled. An object without IDispatch stays VT_EMPTY; a null object is
// copied.
MarshaledValue::MarshaledValue(const VARIANT& value) {
    const bool isObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    if (const ComPtr<IDispatch> object = ObjectIn(value)) {
        object_ = MarshaledObject(object.Get());
    } else if (!isObject || !value.punkVal) {
        value_ = Variant::Copy(value);
    }
}

const VARIANT& MarshaledValue::Get() noexcept {
    if (const ScriptObject& object = object_.Get(); object && value_.Is(VT_EMPTY))
        value_ = Variant::Object(object.AsDispatch());
    return value_;
}

}  // namespace tarvik
