#include "script/ticket.h"

#include <combaseapi.h>

#include "base/status.h"

namespace tarvik {

Ticket::Ticket(IDispatch* object) {
    ThrowIfFailed(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, object, stream_.GetAddressOf()));
}

Ticket& Ticket::operator=(Ticket&& other) noexcept {
    if (this != &other) {
        Redeem();
        stream_.Swap(other.stream_);
    }
    return *this;
}

ComPtr<IDispatch> Ticket::Redeem() noexcept {
    ComPtr<IDispatch> object;
    // The call releases the stream, whatever its status.
    if (stream_) {
        CoGetInterfaceAndReleaseStream(stream_.Detach(), IID_IDispatch,
                                       reinterpret_cast<void**>(object.GetAddressOf()));
    }
    return object;
}

}  // namespace tarvik
