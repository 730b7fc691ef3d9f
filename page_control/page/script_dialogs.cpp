#include "page_control/page/script_dialogs.h"

#include <algorithm>

#include "page_control/dialogs/dialog_template.h"

namespace tarvik {

namespace {

constexpr WORD kEdit = 100;
constexpr WORD kMessage = 101;
constexpr LRESULT kVisibleLines = 4;
constexpr size_t kMaxLength = 32 * 1024;

std::wstring Caption(HWND owner) {
    wchar_t text[256] = {};
    GetWindowTextW(owner, text, static_cast<int>(std::size(text)));
    return text;
}

// The system's dialogs end a text at a null character.
std::wstring Displayed(std::wstring text) {
    std::replace(text.begin(), text.end(), L'\0', L' ');
    return text;
}

// Edit controls break lines at both characters only.
std::wstring WithLineBreaks(const std::wstring& text) {
    std::wstring lines;
    for (const wchar_t character : text) {
        if (character == L'\n' && !lines.ends_with(L'\r')) lines += L'\r';
        lines += character;
    }
    return lines;
}

void ShowMessage(HWND dialog, const std::wstring& message) {
    SetDlgItemTextW(dialog, kMessage, WithLineBreaks(message).c_str());
    const LRESULT lines = SendDlgItemMessageW(dialog, kMessage, EM_GETLINECOUNT, 0, 0);
    ShowScrollBar(GetDlgItem(dialog, kMessage), SB_VERT, lines > kVisibleLines);
}

struct Prompt {
    const ScriptDialog& dialog;
    ScriptDialogResult result;
};

INT_PTR CALLBACK PromptProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* prompt = reinterpret_cast<Prompt*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_INITDIALOG) {
        prompt = reinterpret_cast<Prompt*>(lParam);
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        ShowMessage(window, prompt->dialog.message);
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
    DialogTemplate layout(Caption(owner), {230, 86});
    layout.Add(DialogTemplate::kEdit, kEdit, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {8, 44, 222, 58});
    layout.Add(DialogTemplate::kEdit, kMessage, ES_MULTILINE | ES_READONLY | WS_VSCROLL, {8, 8, 222, 40});
    layout.Add(DialogTemplate::kButton, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {116, 66, 166, 80}, L"OK");
    layout.Add(DialogTemplate::kButton, IDCANCEL, WS_TABSTOP, {172, 66, 222, 80}, L"Cancel");
    Prompt prompt = {dialog, {}};
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Head(), owner, PromptProcedure,
                            reinterpret_cast<LPARAM>(&prompt));
    return prompt.result;
}

}  // namespace

ScriptDialogResult ShowScriptDialog(HWND owner, ScriptDialog dialog) {
    dialog.message = Displayed(std::move(dialog.message));
    dialog.proposal = Displayed(std::move(dialog.proposal));
    if (dialog.type == "prompt") return ShowPrompt(owner, dialog);
    const bool leaving = dialog.type == "beforeunload";
    const std::wstring text =
        leaving ? L"Leave this page? Changes that you made may not be saved." : dialog.message;
    const UINT style = dialog.type == "alert" ? MB_OK | MB_ICONINFORMATION : MB_OKCANCEL | MB_ICONQUESTION;
    return {MessageBoxW(owner, text.c_str(), Caption(owner).c_str(), style) == IDOK, {}};
}

}  // namespace tarvik
