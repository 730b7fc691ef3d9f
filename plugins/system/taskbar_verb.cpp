#include "plugins/system/taskbar_verb.h"

#include <shellapi.h>
#include <shldisp.h>
#include <shlwapi.h>

#include "base/path.h"
#include "plugins/system/shell_object.h"
#include "tarvik/bstr.h"
#include "tarvik/owners.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

std::wstring ShellText(UINT id) {
    const UniqueModule shell(LoadLibraryW(L"Shell32.dll"));
    wchar_t text[kPathLength] = {};
    if (shell) LoadStringW(shell.Get(), id, text, kPathLength);
    return text;
}

// For a missing item the shell returns success and a null pointer.
template <class Interface, class Get>
ComPtr<Interface> RequireResult(Get&& get) {
    ComPtr<Interface> result;
    ThrowIfFailed(get(result.GetAddressOf()));
    if (!result) throw StatusError(E_FAIL);
    return result;
}

ComPtr<FolderItemVerbs> VerbsOf(const std::wstring& path) {
    const auto shell = CreateShellObject<IShellDispatch>(CLSID_Shell);
    const std::wstring name = PathFindFileNameW(path.c_str());
    const Variant parent = Variant::Text(path.substr(0, path.size() - name.size()));
    const Bstr itemName(name);
    const auto folder = RequireResult<Folder>([&](Folder** out) { return shell->NameSpace(parent, out); });
    const auto item =
        RequireResult<FolderItem>([&](FolderItem** out) { return folder->ParseName(itemName.Get(), out); });
    return RequireResult<FolderItemVerbs>([&](FolderItemVerbs** out) { return item->Verbs(out); });
}

}  // namespace

HRESULT DoVerbOfText(const std::wstring& path, const std::wstring& text) {
    const auto verbs = VerbsOf(path);
    LONG count = 0;
    ThrowIfFailed(verbs->get_Count(&count));
    for (LONG i = 0; i < count; ++i) {
        ComPtr<FolderItemVerb> verb;
        ThrowIfFailed(verbs->Item(Variant::I4(i), verb.GetAddressOf()));
        if (!verb) continue;
        Bstr name;
        ThrowIfFailed(verb->get_Name(name.Receive()));
        if (_wcsicmp(std::wstring(name.View()).c_str(), text.c_str()) == 0) return verb->DoIt();
    }
    return E_FAIL;
}

HRESULT DoTaskbarVerb(const TaskbarVerb& verb, const std::wstring& path) {
    const std::wstring text = ShellText(verb.text);
    if (text.empty()) return E_FAIL;
    if (!PathFileExistsW(path.c_str())) return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    // By design this compares the entire path, not its extension: only the path ".lnk" is opened with the
    // verb's name. All others, links included, use the menu.
    if (_wcsicmp(path.c_str(), L".lnk") != 0) return DoVerbOfText(path, text);
    return ShellExecuteSucceeded(ShellExecuteW(nullptr, verb.name, path.c_str(), nullptr, nullptr, SW_SHOW))
               ? S_OK
               : E_FAIL;
}

}  // namespace tarvik
