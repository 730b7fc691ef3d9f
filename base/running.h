#pragma once

#include <windows.h>
#include <objidl.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

// Whether an object can do its work, as far as it reports that: an object whose server has ended, or does not
// respond, is not running. May wait for the server.
inline bool IsRunning(IUnknown* object) {
    const auto runnable = Query<IRunnableObject>(object);
    return !runnable || runnable->IsRunning();
}

// An IRunnableObject that only reports whether the object is running.
class RunningReport : public IRunnableObject {
  public:
    STDMETHODIMP GetRunningClass(CLSID*) override { return E_NOTIMPL; }
    STDMETHODIMP Run(IBindCtx*) override { return S_OK; }
    STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
    STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }
};

}  // namespace tarvik
