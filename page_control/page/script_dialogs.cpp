#include "page_control/page/script_dialogs.h"

#include <cstdint>
#include <vector>

namespace tarvik {

namespace {

constexpr WORD kEdit = 100;
constexpr size_t kMaxLength = 32 * 1024;

std::wstring Caption(HWND owner) {
    wchar_t text[256] = {};
    GetWindowTextW(owner, text, static_cast<int>(std::size(text)));
    return text;
}

// A dialog template in memory, in the documented layout of DLGTEMPLATE.
class Template {
  public:
    Template(const std::wstring& caption, SIZE units) {
        const DLGTEMPLATE head = {DS_MODALFRAME | DS_CENTER | DS_SETFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU,
                                  0,
                                  0,
                                  0,
                                  0,
                                  static_cast<short>(units.cx),
                                  static_cast<short>(units.cy)};
        Append(&head, sizeof head);
        Append(L"\0", 2 * sizeof(wchar_t));  // no menu, the default class
        Append(caption);
        const WORD points = 9;
        Append(&points, sizeof points);
        Append(std::wstring(L"Segoe UI"));
    }

    void Add(WORD controlClass, WORD id, DWORD style, RECT units, const std::wstring& text) {
        words_.resize((words_.size() + 1) & ~size_t{1});  // items are aligned to doublewords
        const DLGITEMTEMPLATE item = {WS_CHILD | WS_VISIBLE | style,
                                      0,
                                      static_cast<short>(units.left),
                                      static_cast<short>(units.top),
                                      static_cast<short>(units.right - units.left),
                                      static_cast<short>(units.bottom - units.top),
                                      id};
        Append(&item, sizeof item);
        const WORD classId[] = {0xFFFF, controlClass};
        Append(classId, sizeof classId);
        Append(text);
        const WORD noData = 0;
        Append(&noData, sizeof noData);
        ++Head()->cdit;
    }

    DLGTEMPLATE* Head() { return reinterpret_cast<DLGTEMPLATE*>(words_.data()); }

  private:
    void Append(const void* bytes, size_t size) {
        const auto* from = static_cast<const WORD*>(bytes);
        words_.insert(words_.end(), from, from + size / sizeof(WORD));
    }
    void Append(const std::wstring& text) { Append(text.c_str(), (text.size() + 1) * sizeof(wchar_t)); }

    std::vector<WORD> words_;
};

struct Prompt {
    const ScriptDialog& dialog;
    ScriptDialogResult result;
};

INT_PTR CALLBACK PromptProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* prompt = reinterpret_cast<Prompt*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_INITDIALOG) {
        prompt = reinterpret_cast<Prompt*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        SetDlgItemTextW(window, kEdit, prompt->dialog.proposal.c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    prompt->result.accepted = LOWORD(wParam) == IDOK;
    std::wstring text(kMaxLength, L'\0');
    text.resize(GetDlgItemTextW(window, kEdit, text.data(), static_cast<int>(kMaxLength)));
    prompt->result.text = std::move(text);
    EndDialog(window, 0);
    return TRUE;
}

ScriptDialogResult ShowPrompt(HWND owner, const ScriptDialog& dialog) {
    constexpr WORD kButtonClass = 0x0080, kEditClass = 0x0081, kStaticClass = 0x0082;
    Template layout(Caption(owner), {230, 86});
    layout.Add(kEditClass, kEdit, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {8, 44, 222, 58}, L"");
    layout.Add(kStaticClass, 0, SS_NOPREFIX, {8, 8, 222, 40}, dialog.message);
    layout.Add(kButtonClass, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {116, 66, 166, 80}, L"OK");
    layout.Add(kButtonClass, IDCANCEL, WS_TABSTOP, {172, 66, 222, 80}, L"Cancel");
    Prompt prompt = {dialog, {}};
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Head(), owner, PromptProcedure,
                            reinterpret_cast<LPARAM>(&prompt));
    return prompt.result;
}

}  // namespace

ScriptDialogResult ShowScriptDialog(HWND owner, const ScriptDialog& dialog) {
    if (dialog.type == "prompt") return ShowPrompt(owner, dialog);
    const bool leaving = dialog.type == "beforeunload";
    const std::wstring text =
        leaving ? L"Leave this page? Changes that you made may not be saved." : dialog.message;
    const UINT style = dialog.type == "alert" ? MB_OK | MB_ICONINFORMATION : MB_OKCANCEL | MB_ICONQUESTION;
    return {MessageBoxW(owner, text.c_str(), Caption(owner).c_str(), style) == IDOK, {}};
}

}  // namespace tarvik
