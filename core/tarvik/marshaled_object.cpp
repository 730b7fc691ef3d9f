#include "tarvik/marshaled_object.h"

#include <combaseapi.h>

#include "tarvik/arguments.h"
#include "tarvik/forwarding_dispatch.h"
#include "tarvik/status.h"

namespace tarvik {

MarshaledObject::MarshaledObject(IDispatch* object) {
    if (!object) return;
    const auto forwarder = MakeCom<ForwardingDispatch>(object);
    ThrowIfFailed(
        CoMarshalInterThreadInterfaceInStream(IID_IDispatch, forwarder.Get(), stream_.GetAddressOf()));
}

MarshaledObject& MarshaledObject::operator=(MarshaledObject&& other) noexcept {
    if (this != &other) {
        Get();
        object_.Reset();
        // Not move assignment: that of mingw-w64's ComPtr copies.
        stream_.Swap(other.stream_);
        object_.Swap(other.object_);
    }
    return *this;
}

IDispatch* MarshaledObject::Get() noexcept {
    // The call releases the stream even if it fails.
    if (stream_) {
        CoGetInterfaceAndReleaseStream(stream_.Detach(), IID_IDispatch,
                                       reinterpret_cast<void**>(object_.GetAddressOf()));
    }
    return object_.Get();
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
    if (IDispatch* object = object_.Get(); object && value_.Is(VT_EMPTY)) value_ = Variant::Object(object);
    return value_;
}

}  // namespace tarvik
