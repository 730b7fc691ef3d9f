#pragma once

#include <string>
#include <string_view>

#include "tarvik/plugin.h"

// The plug-ins of the process. Main thread only; built-in plug-ins register before the entry point runs.
namespace tarvik {

struct PluginEntry {
    TVK::PluginFactory factory;
    int flags;  // TVK::PluginFlags

    bool IsTransient() const { return (flags & TVK::kTransientPlugin) != 0; }
};

// Names are case-sensitive. By design, a second registration of a name succeeds and changes nothing.
HRESULT RegisterPlugin(std::wstring_view name, TVK::PluginFactory factory, int flags);

// Null for an unknown name.
const PluginEntry* FindPlugin(std::wstring_view name);

}  // namespace tarvik
