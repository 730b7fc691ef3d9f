#include "host/plugin_manage.h"

#include <shlwapi.h>

#include <algorithm>
#include <vector>

#include "base/path.h"
#include "base/walk_folder.h"
#include "host/plugin_registry/plugin_library.h"
#include "host/plugin_registry/plugin_registry.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// All windows of the process share this sequence.
DISPID NextPluginId() {
    static DISPID last = -6000;
    do {
        --last;
    } while (last == CPluginManage::kLoadPlugin || last == CPluginManage::kCreateWindow);
    return last;
}

std::wstring PluginFolder() {
    if (PathIsDirectoryW(L"resource")) return L"plugins";
    return ExecutablePath() + L"\\..\\plugins";
}

}  // namespace

CPluginManage::CPluginManage() {
    if (HasPluginLibraries()) return;
    WalkFolder(PluginFolder(), L"\\.dll$", false,
               [this](const std::wstring& path, DWORD, ULONGLONG) { return LoadPluginLibrary(path); });
}

void CPluginManage::SetContext(TVK::ICore* core, IUnknown* browser) {
    core_ = core;
    browser_ = browser;
}

DISPID CPluginManage::GetPluginId(const std::wstring& name) const {
    if (const auto found = ids_.find(name); found != ids_.end()) return found->second;
    return FindPlugin(name) ? kNotCreatedYet : kUnknownName;
}

HRESULT CPluginManage::CreatePlugin(const std::wstring& name, TVK::ICore* core, IUnknown* browser,
                                    TVK::IPlugin** out) {
    const PluginEntry* entry = FindPlugin(name);
    if (!entry) return E_FAIL;
    ComPtr<TVK::IPlugin> plugin;
    const HRESULT status =
        entry->factory(__uuidof(TVK::IPlugin), reinterpret_cast<void**>(plugin.GetAddressOf()));
    if (status != S_OK || !plugin) return status;
    plugin->Initialize(core, browser);
    if (out) CopyTo(plugin, out);
    const DISPID id = NextPluginId();
    ids_.emplace(name, id);
    if (!entry->IsTransient()) instances_.emplace(id, std::move(plugin));
    return S_OK;
}

HRESULT CPluginManage::GetPluginObject(DISPID id, TVK::IPlugin** out) {
    if (!out) return E_INVALIDARG;
    if (const auto retained = instances_.find(id); retained != instances_.end())
        return CopyTo(retained->second, out);
    const auto named = std::ranges::find_if(ids_, [id](const auto& pair) { return pair.second == id; });
    const PluginEntry* entry = named == ids_.end() ? nullptr : FindPlugin(named->first);
    if (!entry) return E_FAIL;
    ComPtr<TVK::IPlugin> plugin;
    entry->factory(__uuidof(TVK::IPlugin), reinterpret_cast<void**>(plugin.GetAddressOf()));
    if (!plugin) return E_FAIL;
    plugin->Initialize(core_.Get(), browser_.Get());
    return CopyTo(plugin, out);
}

HRESULT CPluginManage::LoadPluginLibrary(const std::wstring& path) {
    return tarvik::LoadPluginLibrary(path);
}

void CPluginManage::ForEachPlugin(const std::function<void(TVK::IPlugin*)>& visit) {
    std::vector<ComPtr<TVK::IPlugin>> plugins;
    for (const auto& [id, plugin] : instances_)
        plugins.push_back(plugin);
    for (const auto& plugin : plugins)
        (void)Guard([&] { visit(plugin.Get()); });
}

void CPluginManage::Reset() {
    // The destructor of a plug-in may request another one: the tables must be empty before.
    const auto instances = std::move(instances_);
    instances_.clear();
    ids_.clear();
    core_.Reset();
    browser_.Reset();
}

}  // namespace tarvik
