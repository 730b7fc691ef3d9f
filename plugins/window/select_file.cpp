#include "plugins/window/select_file.h"

#include <commdlg.h>
#include <dlgs.h>

#include <string>

#include "plugins/window/dialog_options.h"
#include "plugins/window/name_buffer.h"
#include "plugins/window/page_array.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

struct FileOptions {
    FileOptions(TVK::ICore* core, const ScriptObject& options)
        : title(options.Get<std::wstring>(L"title", {})),
          filter(options.Get<std::wstring>(L"filter", {})),
          folder(InitialFolder(core, options)),
          multi(options.Get<bool>(L"multi", false)),
          fileMustExist(options.Get<bool>(L"fileMustExist", false)),
          overwritePrompt(options.Get<bool>(L"overwritePrompt", false)),
          saveMode(options.Get<bool>(L"saveMode", false)) {
        // Pairs of a description and a pattern. Two NULs terminate the list even if it lacks its end or half
        // of its last pair.
        if (!filter.empty()) filter.append(2, L'\0');
    }

    std::wstring title, filter, folder;
    bool multi, fileMustExist, overwritePrompt, saveMode;
};

// Grows the buffer when the selection changes.
UINT_PTR CALLBACK OnDialog(HWND hook, UINT message, WPARAM, LPARAM parameter) {
    if (message != WM_NOTIFY) return 0;
    const auto& notice = *reinterpret_cast<const OFNOTIFYW*>(parameter);
    auto* const names = reinterpret_cast<NameBuffer*>(notice.lpOFN->lCustData);
    if (notice.hdr.code != CDN_SELCHANGE || !names) return 0;
    // If out of memory, the buffer stays as it is and the dialog fails because it is too small.
    static_cast<void>(Guard([&] { names->Fit(GetParent(hook)); }));
    notice.lpOFN->lpstrFile = names->Data();
    notice.lpOFN->nMaxFile = names->Size();
    return 0;
}

DWORD FlagsOf(const FileOptions& options) {
    constexpr DWORD kAll = OFN_EXPLORER | OFN_ENABLESIZING | OFN_ENABLEHOOK | OFN_HIDEREADONLY |
                           OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
    if (!options.multi && options.overwritePrompt) return kAll | OFN_OVERWRITEPROMPT;
    return kAll | (options.multi ? OFN_ALLOWMULTISELECT : 0) |
           (options.fileMustExist ? OFN_FILEMUSTEXIST : 0);
}

// Null for an empty text, except in a dialog with multiple selection.
const wchar_t* TextOrNull(const std::wstring& text, const FileOptions& options) {
    return options.multi || !text.empty() ? text.c_str() : nullptr;
}

}  // namespace

Variant ShowFileDialog(HWND owner, TVK::ICore* core, IWebBrowser2* browser, const ScriptObject& given) {
    constexpr size_t kTitleLength = 256;
    const FileOptions options(core, given);
    NameBuffer names;
    wchar_t fileTitle[kTitleLength] = {};
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = DialogOwner(owner);
    dialog.lpstrFilter = options.filter.empty() ? nullptr : options.filter.c_str();
    dialog.lpstrFile = names.Data();
    dialog.nMaxFile = names.Size();
    dialog.lpstrFileTitle = fileTitle;
    dialog.nMaxFileTitle = kTitleLength;
    dialog.lpstrInitialDir = TextOrNull(options.folder, options);
    dialog.lpstrTitle = TextOrNull(options.title, options);
    dialog.Flags = FlagsOf(options);
    dialog.lpfnHook = OnDialog;
    dialog.lCustData = reinterpret_cast<LPARAM>(options.multi ? &names : nullptr);
    const bool save = options.saveMode && !options.multi;
    if (!(save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog))) return Variant::Null();
    return options.multi ? MakePageArray(browser, names.Paths()) : Variant::Text(names.Data());
}

}  // namespace tarvik
