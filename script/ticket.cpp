#include "script/ticket.h"

#include <combaseapi.h>

#include "base/status.h"
#include "script/forwarding_dispatch.h"
#include "script/readers.h"

namespace tarvik {

Ticket::Ticket(IDispatch* object) {
    if (!object) return;
    const auto forwarder = MakeCom<ForwardingDispatch>(object);
    ThrowIfFailed(
        CoMarshalInterThreadInterfaceInStream(IID_IDispatch, forwarder.Get(), stream_.GetAddressOf()));
}

Ticket& Ticket::operator=(Ticket&& other) noexcept {
    if (this != &other) {
        Get();
        object_.Reset();
        // Not move assignment: that of mingw-w64's ComPtr copies.
        stream_.Swap(other.stream_);
        object_.Swap(other.object_);
    }
    return *this;
}

IDispatch* Ticket::Get() noexcept {
    // The call releases the stream, whatever its status.
    if (stream_) {
        CoGetInterfaceAndReleaseStream(stream_.Detach(), IID_IDispatch,
                                       reinterpret_cast<void**>(object_.GetAddressOf()));
    }
    return object_.Get();
}

// What is an object, but none of script's, cannot be taken along.
ValueTicket::ValueTicket(const VARIANT& value) {
    const bool isObject = value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN;
    if (const ComPtr<IDispatch> object = ObjectIn(value)) {
        object_ = Ticket(object.Get());
    } else if (!isObject || !value.punkVal) {
        value_ = Variant::Copy(value);
    }
}

const VARIANT& ValueTicket::Get() noexcept {
    if (IDispatch* object = object_.Get(); object && value_.Is(VT_EMPTY)) value_ = Variant::Object(object);
    return value_;
}

}  // namespace tarvik
