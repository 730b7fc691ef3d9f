#pragma once

#include <windows.h>
#include <objidl.h>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// A marshaled interface: takes a script object from the main thread to one worker, which calls Get and
// destroys this. Every call of the object runs on the main thread while the worker waits, so the main thread
// must pump messages. If the worker never calls Get, the destructor unmarshals and releases the object.
//
// The worker's object is a forwarder (tarvik/forwarding_dispatch.h): its identity differs from that of the
// object on the main thread, and it has no interface but IDispatch.
class MarshaledObject {
  public:
    MarshaledObject() = default;  // null
    // On the main thread. `object` may be null. Throws StatusError if the object cannot be marshaled.
    explicit MarshaledObject(IDispatch* object);
    // From CoMarshalInterThreadInterfaceInStream, for IDispatch.
    explicit MarshaledObject(ComPtr<IStream> stream) : stream_(std::move(stream)) {}
    MarshaledObject(MarshaledObject&&) noexcept = default;
    MarshaledObject& operator=(MarshaledObject&& other) noexcept;
    ~MarshaledObject() { Get(); }

    // The object for the calling thread, owned by this. The first call unmarshals it; all further calls must
    // come from the same thread. Null for a null object, and if it cannot be unmarshaled.
    IDispatch* Get() noexcept;

  private:
    ComPtr<IStream> stream_;
    ComPtr<IDispatch> object_;
};

// The same for a value of any type: objects are marshaled, all others are copied. An object without IDispatch
// becomes VT_EMPTY.
class MarshaledValue {
  public:
    // On the main thread. Throws StatusError.
    explicit MarshaledValue(const VARIANT& value);

    // The value for the calling thread, owned by this.
    const VARIANT& Get() noexcept;

  private:
    MarshaledObject object_;
    Variant value_;
};

}  // namespace tarvik
