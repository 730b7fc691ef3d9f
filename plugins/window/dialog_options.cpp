#include "plugins/window/dialog_options.h"

#include <shlwapi.h>

#include "host/plugin_registry/plugin_base.h"

namespace tarvik {

HWND DialogOwner(HWND window) {
    return window ? window : GetActiveWindow();
}

std::wstring InitialFolder(TVK::ICore* core, const ScriptObject& options) {
    const std::wstring folder = options.Get<std::wstring>(L"initDir", {});
    if (folder.empty() || PathIsURLW(folder.c_str())) return folder;
    return ResolveUrl(core, folder);
}

}  // namespace tarvik
