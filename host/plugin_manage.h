#pragma once

#include <functional>
#include <map>
#include <string>

#include "tarvik/com_ptr.h"
#include "tarvik/plugin.h"

namespace tarvik {

// The plug-ins of one browser window: from a name to a member id of `external`, and from the id to a live
// object. Ids come from one counter of the process and are never used again.
class CPluginManage {
  public:
    static constexpr DISPID kUnknownName = -1;
    static constexpr DISPID kNotCreatedYet = -2;
    // Members of `external` itself, which share the numbers: no plug-in is given these.
    static constexpr DISPID kLoadPlugin = -6999;
    static constexpr DISPID kCreateWindow = -6998;

    // Looks for plug-in libraries, as long as the process has found none.
    CPluginManage();

    void SetContext(TVK::ICore* core, IUnknown* browser);
    TVK::ICore* Core() const { return core_.Get(); }

    // The id of a name that was created in this window; else kNotCreatedYet or kUnknownName.
    DISPID GetPluginId(const std::wstring& name) const;

    // Makes the first instance and gives it an id. A retained one is kept.
    HRESULT CreatePlugin(const std::wstring& name, TVK::ICore* core, IUnknown* browser, TVK::IPlugin** out);

    // The kept object, or a fresh instance of a transient plug-in.
    HRESULT GetPluginObject(DISPID id, TVK::IPlugin** out);

    HRESULT LoadPluginLibrary(const std::wstring& path);

    // The kept objects, newest first. They may create further plug-ins meanwhile, which are not visited. What
    // one of them throws does not keep the others from their visit.
    void ForEachPlugin(const std::function<void(TVK::IPlugin*)>& visit);

    // Lets go of everything, the core included.
    void Reset();

  private:
    std::map<std::wstring, DISPID> ids_;
    std::map<DISPID, ComPtr<TVK::IPlugin>> instances_;
    ComPtr<TVK::ICore> core_;
    ComPtr<IUnknown> browser_;
};

}  // namespace tarvik
