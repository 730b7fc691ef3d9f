#pragma once

#include <string>
#include <string_view>

#include "tarvik/plugin.h"

// Process-wide, main-thread data; built-in plug-ins register before the entry point runs.
namespace tarvik {

struct PluginEntry {
    TVK::PluginFactory factory;
    int flags;  // TVK::PluginFlags

    bool IsTransient() const { return (flags & TVK::kTransientPlugin) != 0; }
};

// Names are exact. A second registration of a name changes nothing and succeeds; that is intended.
HRESULT RegisterPlugin(std::wstring_view name, TVK::PluginFactory factory, int flags);

// Null if there is no such plug-in.
const PluginEntry* FindPlugin(std::wstring_view name);

}  // namespace tarvik
