#include "plugins/window/select_folder.h"

#include <shlobj.h>

#include <string>

#include "base/owners.h"
#include "base/path.h"
#include "plugins/window/dialog_options.h"

namespace tarvik {

namespace {

// `data` is the path of the initial folder.
int CALLBACK OnBrowse(HWND dialog, UINT message, LPARAM, LPARAM data) {
    if (message != BFFM_INITIALIZED || !*reinterpret_cast<const wchar_t*>(data)) return 0;
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, data);
    SendMessageW(dialog, BFFM_SETEXPANDED, TRUE, data);
    return 0;
}

}  // namespace

Variant ShowFolderDialog(HWND owner, TVK::ICore* core, const ScriptObject& options) {
    const std::wstring title = options.Get<std::wstring>(L"title", {});
    const std::wstring folder = InitialFolder(core, options);
    wchar_t name[kPathLength] = {};
    BROWSEINFOW browse = {};
    browse.hwndOwner = DialogOwner(owner);
    browse.pszDisplayName = name;
    browse.lpszTitle = title.c_str();
    browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    if (!options.Get<bool>(L"newFolderButton", false)) browse.ulFlags |= BIF_NONEWFOLDERBUTTON;
    browse.lpfn = OnBrowse;
    browse.lParam = reinterpret_cast<LPARAM>(folder.c_str());
    const UniqueItemList chosen(SHBrowseForFolderW(&browse));
    wchar_t path[kPathLength] = {};
    if (!chosen || !SHGetPathFromIDListW(chosen.Get(), path)) return Variant::Null();
    return Variant::Text(path);
}

}  // namespace tarvik
