#pragma once

#include <windows.h>
#include <wrl/client.h>

#include <utility>

namespace tarvik {

using Microsoft::WRL::ComPtr;

// Makes a ComObject and owns its first reference.
template <class T, class... Args>
ComPtr<T> MakeCom(Args&&... args) {
    ComPtr<T> made;
    // Not Attach: that of mingw-w64 takes a further reference.
    *made.GetAddressOf() = new T(std::forward<Args>(args)...);
    return made;
}

// The object's answer for an interface, or null.
template <class Interface>
ComPtr<Interface> Query(IUnknown* object) {
    ComPtr<Interface> found;
    if (object) object->QueryInterface(__uuidof(Interface), reinterpret_cast<void**>(found.GetAddressOf()));
    return found;
}

// Hands out one reference through an out parameter.
template <class T, class U>
HRESULT CopyTo(const ComPtr<T>& object, U** out) {
    if (!out) return E_POINTER;
    *out = object.Get();
    if (*out) (*out)->AddRef();
    return S_OK;
}

}  // namespace tarvik
