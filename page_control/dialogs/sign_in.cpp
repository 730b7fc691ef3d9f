#include "page_control/dialogs/sign_in.h"

#include "page_control/dialogs/dialog_template.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr WORD kUser = 100;
constexpr WORD kPassword = 101;
constexpr int kMaxLength = 1024;

std::string Describe(const event::AuthRequired& required) {
    const std::string realm = required.realm.empty() ? "" : "\nIt says: " + required.realm;
    return (required.isProxy ? "The proxy " : "The site ") + required.origin +
           " requires a user name and a password." + realm;
}

std::string TextOf(HWND dialog, WORD item) {
    wchar_t text[kMaxLength] = {};
    GetDlgItemTextW(dialog, item, text, kMaxLength);
    std::string narrow = Narrow(text);
    SecureZeroMemory(text, sizeof text);
    return narrow;
}

INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    auto& response = *reinterpret_cast<Json*>(GetWindowLongPtrW(window, DWLP_USER));
    if (LOWORD(wParam) == IDOK)
        response = {{"response", "ProvideCredentials"},
                    {"username", TextOf(window, kUser)},
                    {"password", TextOf(window, kPassword)}};
    EndDialog(window, 0);
    return TRUE;
}

// The response for the engine.
Json Ask(HWND owner, const std::string& description) {
    DialogTemplate layout(L"Sign in", {230, 108});
    layout.Add(DialogTemplate::kStatic, 0, SS_NOPREFIX, {8, 8, 222, 40}, Widen(description));
    layout.Add(DialogTemplate::kStatic, 0, 0, {8, 46, 68, 56}, L"&User name:");
    layout.Add(DialogTemplate::kEdit, kUser, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, {70, 44, 222, 57});
    layout.Add(DialogTemplate::kStatic, 0, 0, {8, 66, 68, 76}, L"&Password:");
    layout.Add(DialogTemplate::kEdit, kPassword, WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL | ES_PASSWORD,
               {70, 64, 222, 77});
    layout.Add(DialogTemplate::kButton, IDOK, WS_TABSTOP | BS_DEFPUSHBUTTON, {116, 88, 166, 102}, L"Sign in");
    layout.Add(DialogTemplate::kButton, IDCANCEL, WS_TABSTOP, {172, 88, 222, 102}, L"Cancel");
    Json response = {{"response", "CancelAuth"}};
    DialogBoxIndirectParamW(GetModuleHandleW(nullptr), layout.Head(), owner, Procedure,
                            reinterpret_cast<LPARAM>(&response));
    return response;
}

}  // namespace

SignIn::SignIn(HWND window, PageTarget& target, DialogQueue& queue)
    : window_(window),
      target_(target),
      queue_(queue),
      required_(target.Events().Subscribe<event::AuthRequired>(
          [this](const event::AuthRequired& required) { OnRequired(required); })) {}

// The user answers once for all requests that wait at that time. A wrong password is a new request.
void SignIn::OnRequired(const event::AuthRequired& required) {
    const unsigned answerBefore = answers_[Describe(required)].number;
    queue_.Add([this, alive = std::weak_ptr(alive_), required, answerBefore] {
        if (!alive.expired()) Respond(required, answerBefore);
    });
}

// The page, and this with it, may be closed while the dialog is open.
void SignIn::Respond(const event::AuthRequired& required, unsigned answerBefore) {
    const std::weak_ptr<bool> alive = alive_;
    const std::string description = Describe(required);
    if (answers_[description].number == answerBefore) {
        Json response = Ask(GetAncestor(window_, GA_ROOT), description);
        if (alive.expired()) return;
        answers_[description] = {answerBefore + 1, std::move(response)};
    }
    target_.Post("Fetch.continueWithAuth", {{"requestId", required.requestId},
                                            {"authChallengeResponse", answers_[description].response}});
}

}  // namespace tarvik
