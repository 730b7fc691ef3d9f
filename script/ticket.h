#pragma once

#include <windows.h>
#include <objidl.h>

#include "base/com_ptr.h"
#include "base/variant.h"

namespace tarvik {

// Takes a script object from its own thread to one other, where it is used and dropped. One that is dropped
// unused is redeemed and released at once, so that the object's reference is not lost. Each has a forwarder
// of the object to itself (script/forwarding_dispatch.h), which has calls in common with it and no identity.
class Ticket {
  public:
    Ticket() = default;                  // leads to nothing
    explicit Ticket(IDispatch* object);  // so does one for null; a failure throws
    explicit Ticket(ComPtr<IStream> stream) : stream_(std::move(stream)) {}
    Ticket(Ticket&&) noexcept = default;
    Ticket& operator=(Ticket&& other) noexcept;
    ~Ticket() { Get(); }

    // The object as the using thread must use it, kept by the ticket; null if the object has gone.
    IDispatch* Get() noexcept;

  private:
    ComPtr<IStream> stream_;
    ComPtr<IDispatch> object_;
};

// The same for a value of any kind: an object travels, everything else is copied.
class ValueTicket {
  public:
    explicit ValueTicket(const VARIANT& value);  // a failure throws

    const VARIANT& Get() noexcept;

  private:
    Ticket object_;
    Variant value_;
};

}  // namespace tarvik
