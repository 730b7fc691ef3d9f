#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <utility>

namespace tarvik {

// Owner of a reference to a COM interface. Constructed or assigned from a plain pointer, it takes a further
// reference.
using Microsoft::WRL::ComPtr;

// Creates a ComObject (tarvik/com_object.h) and owns its first reference. Throws std::bad_alloc, and what the
// constructor throws.
template <class T, class... Args>
ComPtr<T> MakeCom(Args&&... args) {
    ComPtr<T> made;
    // Not Attach: mingw-w64's takes a further reference.
    *made.GetAddressOf() = new T(std::forward<Args>(args)...);
    return made;
}

// QueryInterface: another interface of the object; null if the object does not have it, and for a null
// object.
template <class Interface>
ComPtr<Interface> Query(IUnknown* object) {
    ComPtr<Interface> found;
    if (object) object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.GetAddressOf()));
    return found;
}

// Stores a further reference in an out parameter, which the caller owns. A null object stores null. E_POINTER
// for a null `out`.
template <class T, class U>
HRESULT CopyTo(const ComPtr<T>& object, U** out) {
    if (!out) return E_POINTER;
    *out = object.Get();
    if (*out) (*out)->AddRef();
    return S_OK;
}

}  // namespace tarvik
