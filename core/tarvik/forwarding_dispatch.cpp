#include "tarvik/forwarding_dispatch.h"

#include <cstring>
#include <vector>

#include "tarvik/arguments.h"
#include "tarvik/status.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

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

}  // namespace

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

}  // namespace tarvik
