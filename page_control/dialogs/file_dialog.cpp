#include "page_control/dialogs/file_dialog.h"

#include <shlwapi.h>
#include <shobjidl.h>

#include <memory>

#include "tarvik/com_ptr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

using Purpose = FileDialog::Purpose;

struct FreeTaskMemory {
    void operator()(void* memory) const { CoTaskMemFree(memory); }
};

ComPtr<IFileDialog> MakeDialog(bool save) {
    ComPtr<IFileDialog> dialog;
    ThrowIfFailed(CoCreateInstance(save ? CLSID_FileSaveDialog : CLSID_FileOpenDialog, nullptr,
                                   CLSCTX_INPROC_SERVER, __uuidof(IFileDialog),
                                   reinterpret_cast<void**>(dialog.GetAddressOf())));
    return dialog;
}

DWORD OptionsOf(Purpose purpose) {
    constexpr DWORD kAll = FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST | FOS_NOCHANGEDIR;
    switch (purpose) {
        case Purpose::kOpenFile:
            return kAll | FOS_FILEMUSTEXIST;
        case Purpose::kOpenFiles:
            return kAll | FOS_FILEMUSTEXIST | FOS_ALLOWMULTISELECT;
        case Purpose::kOpenFolder:
            return kAll | FOS_PICKFOLDERS;
        case Purpose::kSaveFile:
            return kAll | FOS_OVERWRITEPROMPT;
    }
    return kAll;
}

void SetTypes(IFileDialog& dialog, const std::wstring& pattern) {
    const COMDLG_FILTERSPEC types[] = {{L"Suitable files", pattern.c_str()}, {L"All files", L"*.*"}};
    const bool all = pattern.empty();
    ThrowIfFailed(dialog.SetFileTypes(all ? 1 : 2, all ? types + 1 : types));
}

// A name without its extension gets that of the proposal.
void Propose(IFileDialog& dialog, const std::wstring& name) {
    dialog.SetFileName(name.c_str());
    const wchar_t* const extension = PathFindExtensionW(name.c_str());
    if (*extension) dialog.SetDefaultExtension(extension + 1);
}

std::wstring PathOf(IShellItem& item) {
    wchar_t* path = nullptr;
    ThrowIfFailed(item.GetDisplayName(SIGDN_FILESYSPATH, &path));
    const std::unique_ptr<wchar_t, FreeTaskMemory> owner(path);
    return path;
}

std::vector<std::wstring> Results(IFileDialog& dialog, bool save) {
    if (save) {
        ComPtr<IShellItem> item;
        ThrowIfFailed(dialog.GetResult(item.GetAddressOf()));
        return {PathOf(*item.Get())};
    }
    const auto open = Query<IFileOpenDialog>(&dialog);
    ComPtr<IShellItemArray> items;
    ThrowIfFailed(open ? open->GetResults(items.GetAddressOf()) : E_NOINTERFACE);
    DWORD count = 0;
    ThrowIfFailed(items->GetCount(&count));
    std::vector<std::wstring> paths;
    for (DWORD i = 0; i < count; ++i) {
        ComPtr<IShellItem> item;
        ThrowIfFailed(items->GetItemAt(i, item.GetAddressOf()));
        paths.push_back(PathOf(*item.Get()));
    }
    return paths;
}

}  // namespace

std::vector<std::wstring> ChooseFiles(HWND owner, const FileDialog& description) {
    const bool save = description.purpose == Purpose::kSaveFile;
    const auto dialog = MakeDialog(save);
    ThrowIfFailed(dialog->SetOptions(OptionsOf(description.purpose)));
    if (description.purpose != Purpose::kOpenFolder) SetTypes(*dialog.Get(), description.pattern);
    if (!description.name.empty()) Propose(*dialog.Get(), description.name);
    if (dialog->Show(owner) != S_OK) return {};
    return Results(*dialog.Get(), save);
}

}  // namespace tarvik
