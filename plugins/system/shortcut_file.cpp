#include "plugins/system/shortcut_file.h"

#include <intshcut.h>
#include <isguids.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "base/path.h"
#include "plugins/system/shell_object.h"
#include "script/object.h"
#include "tarvik/script_object.h"

namespace tarvik {

namespace {

template <class Interface>
ComPtr<Interface> QueryRequired(IUnknown* object) {
    const auto found = Query<Interface>(object);
    if (!found) throw StatusError(E_NOINTERFACE);
    return found;
}

void SetIcon(IUnknown* object, const Shortcut& shortcut) {
    if (shortcut.icon.empty()) return;
    std::wstring icon = shortcut.icon;
    if (PathIsRelativeW(icon.c_str())) {
        icon = ReadPath([&](wchar_t* buffer) {
            GetCurrentDirectoryW(kPathLength, buffer);
            PathAppendW(buffer, shortcut.icon.c_str());
        });
    }
    ThrowIfFailed(QueryRequired<IShellLinkW>(object)->SetIconLocation(icon.c_str(), shortcut.iconIndex));
}

HRESULT Save(IUnknown* object, std::wstring path, const wchar_t* extension) {
    if (_wcsicmp(PathFindExtensionW(path.c_str()), extension) != 0) path += extension;
    return QueryRequired<IPersistFile>(object)->Save(path.c_str(), TRUE);
}

}  // namespace

HRESULT SaveLinkFile(const Shortcut& shortcut, const std::wstring& path) {
    const auto link = CreateShellObject<IShellLinkW>(CLSID_ShellLink);
    ThrowIfFailed(link->SetPath(shortcut.target.c_str()));
    ThrowIfFailed(link->SetWorkingDirectory(ParentFolder(shortcut.target, L"\\").c_str()));
    ThrowIfFailed(link->SetArguments(shortcut.arguments.c_str()));
    SetIcon(link.Get(), shortcut);
    return Save(link.Get(), path, L".lnk");
}

HRESULT SaveUrlFile(const Shortcut& shortcut, const std::wstring& path) {
    const auto link =
        CreateShellObject<IUniformResourceLocatorW>(CLSID_InternetShortcut, IID_IUniformResourceLocatorW);
    ThrowIfFailed(link->SetURL(shortcut.target.c_str(), 0));
    SetIcon(link.Get(), shortcut);
    return Save(link.Get(), path, L".url");
}

ComPtr<IDispatch> ReadLinkFile(const std::wstring& path) {
    const auto link = CreateShellObject<IShellLinkW>(CLSID_ShellLink);
    ThrowIfFailed(QueryRequired<IPersistFile>(link.Get())->Load(path.c_str(), STGM_READ));
    wchar_t target[kPathLength] = {};
    wchar_t arguments[kPathLength] = {};
    ThrowIfFailed(link->GetPath(target, kPathLength, nullptr, 0));
    ThrowIfFailed(link->GetArguments(arguments, kPathLength));
    const ScriptObject parsed(MakeCom<CObject>().Get());
    parsed.Set(L"path", target);
    parsed.Set(L"args", arguments);
    return ComPtr<IDispatch>(parsed.AsDispatch());
}

}  // namespace tarvik
