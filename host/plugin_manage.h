#pragma once

#include <functional>
#include <map>
#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/plugin.h"

namespace tarvik {

// The plug-ins of one browser window: maps their names to member ids of `external`, and the ids to objects.
// An id is never reused in the process.
class CPluginManage {
  public:
    static constexpr DISPID kUnknownName = -1;
    static constexpr DISPID kNotCreatedYet = -2;
    // The ids of the other members of `external`, which no plug-in gets.
    static constexpr DISPID kLoadPlugin = -6999;
    static constexpr DISPID kCreateWindow = -6998;

    // Loads the plug-in libraries, if the process has not loaded any yet.
    CPluginManage();

    void SetContext(TVK::ICore* core, IUnknown* browser);
    TVK::ICore* Core() const { return core_.Get(); }

    // The id of a plug-in that was created in this window; otherwise kNotCreatedYet or kUnknownName.
    DISPID GetPluginId(const std::wstring& name) const;

    // Creates the first object of a plug-in and assigns an id to the plug-in. A retained object is stored.
    HRESULT CreatePlugin(const std::wstring& name, TVK::ICore* core, IUnknown* browser, TVK::IPlugin** out);

    // The stored object of a retained plug-in, or a new object of a transient one.
    HRESULT GetPluginObject(DISPID id, TVK::IPlugin** out);

    HRESULT LoadPluginLibrary(const std::wstring& path);

    // Calls `visit` for the stored objects, newest first, but not for those that are created meanwhile. An
    // exception ends the visit of one object only.
    void ForEachPlugin(const std::function<void(TVK::IPlugin*)>& visit);

    // Releases everything, including the core.
    void Reset();

  private:
    std::map<std::wstring, DISPID> ids_;
    std::map<DISPID, ComPtr<TVK::IPlugin>> instances_;
    ComPtr<TVK::ICore> core_;
    ComPtr<IUnknown> browser_;
};

}  // namespace tarvik
