#pragma once

#include <windows.h>
#include <oaidl.h>

#include "base/compiler.h"
#include "tarvik/plugin.h"

// The interface of the site that a browser window calls.
MIDL_INTERFACE("D113E828-C5D0-451C-8D7C-9B87744AD768")
IWebbrowserHost : public IUnknown {
  public:
    // The arguments of IPlugin::Initialize for plug-ins that are created from now on.
    STDMETHOD(SetContext)(TVK::ICore * core, IUnknown * browser) = 0;
    // The window is being destroyed: releases the plug-ins and the context, while the control still exists.
    STDMETHOD(Close)() = 0;
    // Handles NavigateComplete2 (252) and DocumentComplete (259), and ignores other events.
    STDMETHOD(OnBrowserEvent)(int dispatchId) = 0;
    // Implements TVK::ICore::GetPlugin.
    STDMETHOD(GetPlugin)(const wchar_t* name, IDispatch** out) = 0;
};
TARVIK_IID(IWebbrowserHost, 0xD113E828, 0xC5D0, 0x451C, 0x8D, 0x7C, 0x9B, 0x87, 0x74, 0x4A, 0xD7, 0x68)
