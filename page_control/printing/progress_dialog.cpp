#include "page_control/printing/progress_dialog.h"

#include "page_control/dialogs/dialog_template.h"

namespace tarvik {

namespace {

using Poll = std::function<std::optional<std::wstring>()>;

constexpr WORD kText = 100;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kPollInterval = 50;  // milliseconds
constexpr INT_PTR kDone = 1;

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* poll = reinterpret_cast<const Poll*>(GetWindowLongPtrW(window, DWLP_USER));
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrW(window, DWLP_USER, lParam);
            SetTimer(window, kTimer, kPollInterval, nullptr);
            return TRUE;
        case WM_TIMER:
            if (const auto text = (*poll)())
                SetDlgItemTextW(window, kText, text->c_str());
            else
                EndDialog(window, kDone);
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wParam) != IDCANCEL) return FALSE;
            EndDialog(window, 0);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

bool ShowProgress(HWND owner, const std::wstring& caption, const Poll& poll) {
    const auto text = poll();
    if (!text) return true;
    DialogTemplate layout(caption, {200, 60});
    layout.Add(DialogTemplate::kStatic, kText, SS_NOPREFIX, {8, 10, 192, 30}, *text);
    layout.Add(DialogTemplate::kButton, IDCANCEL, WS_TABSTOP | BS_DEFPUSHBUTTON, {142, 38, 192, 52},
               L"Cancel");
    return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Head(), owner, Procedure,
                                   reinterpret_cast<LPARAM>(&poll)) == kDone;
}

}  // namespace tarvik
