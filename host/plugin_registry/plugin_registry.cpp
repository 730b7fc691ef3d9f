#include "host/plugin_registry/plugin_registry.h"

#include <map>

namespace tarvik {

namespace {

// Created at its first use: built-in plug-ins register from static initialisers, in any order.
auto& Registry() {
    static std::map<std::wstring, PluginEntry, std::less<>> registry;
    return registry;
}

}  // namespace

HRESULT RegisterPlugin(std::wstring_view name, TVK::PluginFactory factory, int flags) {
    Registry().try_emplace(std::wstring(name), PluginEntry{factory, flags});
    return S_OK;
}

const PluginEntry* FindPlugin(std::wstring_view name) {
    const auto found = Registry().find(name);
    return found == Registry().end() ? nullptr : &found->second;
}

}  // namespace tarvik
