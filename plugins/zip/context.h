#pragma once

#include <windows.h>
#include <unknwn.h>

#include "base/compiler.h"

namespace tarvik {

// Gives a worker thread, which has only an interface of the plug-in, access to the native object.
MIDL_INTERFACE("ED8550FC-4519-42A9-8B4A-2AC8A12030D9")
IContext : public IUnknown {
  public:
    virtual void* STDMETHODCALLTYPE GetContext() = 0;  // without a reference
};

// T derives from this.
template <class T>
class IContextImpl : public IContext {
  public:
    void* STDMETHODCALLTYPE GetContext() override { return static_cast<T*>(this); }
};

}  // namespace tarvik

TARVIK_IID(tarvik::IContext, 0xED8550FC, 0x4519, 0x42A9, 0x8B, 0x4A, 0x2A, 0xC8, 0xA1, 0x20, 0x30, 0xD9)
