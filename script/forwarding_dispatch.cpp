#include "script/forwarding_dispatch.h"

#include <vector>

#include "base/status.h"
#include "base/variant.h"
#include "script/readers.h"

namespace tarvik {

namespace {

// By this an object is known to be one of this class.
constexpr GUID kOwnClass = {0x5F0B61C3, 0x8A42, 0x4E0D, {0xB1, 0x37, 0x6D, 0x95, 0x02, 0xEE, 0x4A, 0x18}};

// What is an object, but none of script's, cannot be taken along.
void ForwardResult(VARIANT& result) {
    if ((result.vt != VT_DISPATCH && result.vt != VT_UNKNOWN) || !result.punkVal) return;
    Variant forwarded;
    if (const auto object = ObjectIn(result))
        forwarded = Variant::Object(MakeCom<ForwardingDispatch>(object.Get()).Get());
    forwarded.MoveInto(&result);
}

}  // namespace

void* ForwardingDispatch::Find(REFIID iid) {
    return iid == kOwnClass ? this : ComObject::Find(iid);
}

IDispatch* ForwardingDispatch::Target(IDispatch* object) {
    ComPtr<ForwardingDispatch> forwarder;
    if (object) object->QueryInterface(kOwnClass, reinterpret_cast<void**>(forwarder.GetAddressOf()));
    return forwarder ? forwarder->target_.Get() : object;
}

STDMETHODIMP ForwardingDispatch::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags,
                                        DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                        UINT* badArgument) {
    if (!parameters) return E_INVALIDARG;
    return Guard([&] {
        // Borrowed bits, as the caller's own.
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
