#pragma once

#include <windows.h>
#include <oaidl.h>

#include "base/compiler.h"
#include "tarvik/plugin.h"

// What a browser window asks of its site.
MIDL_INTERFACE("D113E828-C5D0-451C-8D7C-9B87744AD768")
IWebbrowserHost : public IUnknown {
  public:
    STDMETHOD(SetContext)(TVK::ICore * core, IUnknown * browser) = 0;
    // The window is going: lets go of the plug-ins and of the window, while the control still lives.
    STDMETHOD(Close)() = 0;
    // NavigateComplete2 (252) and DocumentComplete (259); others are ignored.
    STDMETHOD(OnBrowserEvent)(int dispatchId) = 0;
    // A plug-in of this window, made if need be, with one reference.
    STDMETHOD(GetPlugin)(const wchar_t* name, IDispatch** out) = 0;
};
TARVIK_IID(IWebbrowserHost, 0xD113E828, 0xC5D0, 0x451C, 0x8D, 0x7C, 0x9B, 0x87, 0x74, 0x4A, 0xD7, 0x68)
