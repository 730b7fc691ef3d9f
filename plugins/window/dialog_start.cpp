#include "plugins/window/dialog_start.h"

#include <shlwapi.h>

#include "base/bstr.h"

namespace tarvik {

HWND DialogOwner(HWND window) {
    return window ? window : GetActiveWindow();
}

std::wstring FirstFolder(TVK::ICore* core, const Options& options) {
    const std::wstring folder = options.Text(L"initDir").value_or(L"");
    if (folder.empty() || PathIsURLW(folder.c_str())) return folder;
    Bstr resolved;
    core->ResolveUrl(folder.c_str(), resolved.Receive());
    return std::wstring(resolved.View());
}

}  // namespace tarvik
