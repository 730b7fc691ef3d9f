#pragma once

#include <windows.h>
#include <objidl.h>

#include "base/com_ptr.h"

namespace tarvik {

// A one-shot ticket that takes a script object to another thread. One that is dropped unused is redeemed and
// released at once, so that the object's reference is not lost.
class Ticket {
  public:
    Ticket() = default;
    explicit Ticket(IDispatch* object);  // on the object's own thread; a failure throws
    explicit Ticket(ComPtr<IStream> stream) : stream_(std::move(stream)) {}
    Ticket(Ticket&&) noexcept = default;
    Ticket& operator=(Ticket&& other) noexcept;
    ~Ticket() { Redeem(); }

    // The object as the calling thread must use it; null the second time, or when the object has gone.
    ComPtr<IDispatch> Redeem() noexcept;

    IStream* Stream() const { return stream_.Get(); }
    // Gives up the claim: somebody else redeems the stream.
    ComPtr<IStream> Detach() noexcept { return std::move(stream_); }

  private:
    ComPtr<IStream> stream_;
};

}  // namespace tarvik
