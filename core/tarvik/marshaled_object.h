#pragma once

#include <windows.h>
#include <objidl.h>

#include <utility>

#include "tarvik/com_ptr.h"
#include "tarvik/script_object.h"
#include "tarvik/variant.h"

namespace tarvik {

// Takes a script object from the main thread to one worker, as a marshaled interface: create it on the main
// thread, and call Get on the worker, which also destroys it. Every call of the object runs on the main
// thread while the worker waits, so the main thread must pump messages. If the worker never calls Get, the
// destructor unmarshals and releases the object.
//
// What Get returns is a stand-in: it forwards calls to the object, has another identity, and has no interface
// but IDispatch.
class MarshaledObject {
  public:
    MarshaledObject() = default;  // empty
    // On the main thread. `object` may be null. Throws StatusError if the object cannot be marshaled.
    explicit MarshaledObject(IDispatch* object);
    explicit MarshaledObject(const ScriptObject& object) : MarshaledObject(object.AsDispatch()) {}
    // From CoMarshalInterThreadInterfaceInStream, for IDispatch; on any thread.
    explicit MarshaledObject(ComPtr<IStream> stream) : stream_(std::move(stream)) {}
    MarshaledObject(MarshaledObject&&) noexcept = default;
    MarshaledObject& operator=(MarshaledObject&& other) noexcept;
    ~MarshaledObject() { Get(); }

    // The object for the calling thread, valid as long as this. The first call unmarshals it; all further
    // calls must come from the same thread. Empty for a null object, and if it cannot be unmarshaled.
    const ScriptObject& Get() noexcept;

  private:
    ComPtr<IStream> stream_;
    ScriptObject object_;
};

// The same for a value of any type: an object is marshaled, any other value copied. An object without
// IDispatch becomes VT_EMPTY.
class MarshaledValue {
  public:
    // On the main thread. Throws StatusError.
    explicit MarshaledValue(const VARIANT& value);

    // The value for the calling thread, owned by this; as MarshaledObject::Get.
    const VARIANT& Get() noexcept;

  private:
    MarshaledObject object_;
    Variant value_;
};

}  // namespace tarvik
