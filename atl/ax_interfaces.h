#pragma once

#include <windows.h>
#include <oaidl.h>
#include <objidl.h>
#include <oleauto.h>

#include "base/compiler.h"

// The published interfaces of a window that hosts a control.

MIDL_INTERFACE("B6EA2050-048A-11D1-82B9-00C04FB9942E")
IAxWinHostWindow : public IUnknown {
  public:
    STDMETHOD(CreateControl)(LPCOLESTR name, HWND window, IStream * stream) = 0;
    STDMETHOD(CreateControlEx)
    (LPCOLESTR name, HWND window, IStream * stream, IUnknown * *control, REFIID events, IUnknown * sink) = 0;
    STDMETHOD(AttachControl)(IUnknown * control, HWND window) = 0;
    STDMETHOD(QueryControl)(REFIID iid, void** out) = 0;
    STDMETHOD(SetExternalDispatch)(IDispatch * external) = 0;
    STDMETHOD(SetExternalUIHandler)(IUnknown * handler) = 0;
};
TARVIK_IID(IAxWinHostWindow, 0xB6EA2050, 0x048A, 0x11D1, 0x82, 0xB9, 0x00, 0xC0, 0x4F, 0xB9, 0x94, 0x2E)

MIDL_INTERFACE("3935BDA8-4ED9-495C-8650-E01FC1E38A4B")
IAxWinHostWindowLic : public IAxWinHostWindow {
  public:
    STDMETHOD(CreateControlLic)(LPCOLESTR name, HWND window, IStream * stream, BSTR licence) = 0;
    // Creates the control that `name` denotes: a URL or a path denotes a web browser, which navigates there.
    // `control` receives a reference to it. `sink` is connected to its event interface `events`.
    STDMETHOD(CreateControlLicEx)
    (LPCOLESTR name, HWND window, IStream * stream, IUnknown * *control, REFIID events, IUnknown * sink,
     BSTR licence) = 0;
};
TARVIK_IID(IAxWinHostWindowLic, 0x3935BDA8, 0x4ED9, 0x495C, 0x86, 0x50, 0xE0, 0x1F, 0xC1, 0xE3, 0x8A, 0x4B)
