#pragma once

#include <windows.h>
#include <objidl.h>

#include "tarvik/com_ptr.h"
#include "tarvik/variant.h"

namespace tarvik {

// Takes a script object from the main thread to one worker, which uses and destroys it. There each call of
// the object runs on the main thread while the worker waits. An unused one is unmarshaled and released at
// destruction, or the object's reference would leak. Each has a forwarder of the object to itself
// (tarvik/forwarding_dispatch.h), which passes calls on and has an identity of its own.
class MarshaledObject {
  public:
    MarshaledObject() = default;                  // null
    explicit MarshaledObject(IDispatch* object);  // may be null; a failure throws
    explicit MarshaledObject(ComPtr<IStream> stream) : stream_(std::move(stream)) {}
    MarshaledObject(MarshaledObject&&) noexcept = default;
    MarshaledObject& operator=(MarshaledObject&& other) noexcept;
    ~MarshaledObject() { Get(); }

    // The object for the calling thread, unmarshaled by the first call and owned by this. Null if the object
    // has been destroyed.
    IDispatch* Get() noexcept;

  private:
    ComPtr<IStream> stream_;
    ComPtr<IDispatch> object_;
};

// The same for a value of any type: an object is marshaled, everything else is copied.
class MarshaledValue {
  public:
    explicit MarshaledValue(const VARIANT& value);  // a failure throws

    const VARIANT& Get() noexcept;

  private:
    MarshaledObject object_;
    Variant value_;
};

}  // namespace tarvik
