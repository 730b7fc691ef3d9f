#include "plugins/system/create_shortcut.h"

#include <shlobj.h>
#include <shlwapi.h>

#include "base/path.h"
#include "plugins/system/path_option.h"
#include "plugins/system/shortcut_file.h"

namespace tarvik {

namespace {

bool IsUrl(const std::wstring& target) {
    return PathIsURLW(target.c_str()) != FALSE;
}

// The name defaults to that of the target, unless that is a URL. By design the path always gets the extension
// .lnk, so that of a URL's shortcut becomes .lnk.url.
std::wstring PathOnDesktop(std::wstring name, const std::wstring& target) {
    if (name.empty() && !IsUrl(target)) name = PathFindFileNameW(target.c_str());
    if (name.empty()) throw StatusError(E_INVALIDARG);
    wchar_t desktop[kPathLength] = {};
    if (!SHGetSpecialFolderPathW(nullptr, desktop, CSIDL_DESKTOPDIRECTORY, FALSE)) ThrowLastError();
    return std::wstring(desktop) + L"\\" + name + L".lnk";
}

}  // namespace

HRESULT SaveShortcut(TVK::ICore* core, const ScriptObject& options) {
    Shortcut shortcut;
    shortcut.target = PathOption(core, options, L"src");
    if (shortcut.target.empty()) return E_INVALIDARG;
    shortcut.arguments = options.Get<std::wstring>(L"arg", {});
    std::wstring dest = PathOption(core, options, L"dest");
    shortcut.icon = PathOption(core, options, L"icon");
    if (!shortcut.icon.empty()) {
        const auto index = options.Get<AnyInt32>(L"iconIndex");
        shortcut.iconIndex = index ? index->value : 0;
    }

    const bool onDesktop = options.Get<bool>(L"desktop", false);
    if (onDesktop != dest.empty()) return E_INVALIDARG;
    if (onDesktop) dest = PathOnDesktop(options.Get<std::wstring>(L"destName", {}), shortcut.target);
    return IsUrl(shortcut.target) ? SaveUrlFile(shortcut, dest) : SaveLinkFile(shortcut, dest);
}

}  // namespace tarvik
