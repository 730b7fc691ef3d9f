#include "tests/support/dialog_driver.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/screen.h"
#include "tests/support/waiting.h"

namespace tarvik {

namespace {

constexpr int kFileName = 0x47C;  // cmb13 of the system's file dialogs

HWND DialogNow(HWND other) {
    for (const HWND window : TopWindows(L"#32770")) {
        if (window != other && IsWindowVisible(window)) return window;
    }
    return nullptr;
}

}  // namespace

void AnswerDialogs(const std::function<void()>& call, const std::function<void(HWND)>& user) {
    std::atomic<bool> over{false};
    std::thread other([&] {
        if (const HWND first = NextDialog()) user(first);
        while (!WaitFor([&] { return over.load(); })) {
            ADD_FAILURE() << "a dialog is still open";
            for (const int button : {IDCANCEL, IDNO, IDOK})
                PostMessageW(DialogNow(nullptr), WM_COMMAND, button, 0);
        }
    });
    call();
    over = true;
    other.join();
}

HWND NextDialog(HWND other) {
    HWND dialog = nullptr;
    EXPECT_TRUE(WaitFor([&] { return (dialog = DialogNow(other)) != nullptr; })) << "no dialog was opened";
    return dialog;
}

std::wstring TextOf(HWND dialog, int item) {
    return TextOf(GetDlgItem(dialog, item));
}

bool Press(HWND dialog, int button) {
    // Posted, like a click: under Wine, a dialog that is closed by a sent message may swallow a posted one.
    PostMessageW(dialog, WM_COMMAND, button, 0);
    return WaitFor([&] { return !IsWindow(dialog); });
}

HWND EditOf(HWND dialog) {
    HWND found = nullptr;
    EnumChildWindows(
        dialog,
        [](HWND window, LPARAM out) -> BOOL {
            wchar_t name[16] = {};
            GetClassNameW(window, name, static_cast<int>(std::size(name)));
            const bool isEdit = _wcsicmp(name, L"Edit") == 0;
            if (isEdit) *reinterpret_cast<HWND*>(out) = window;
            return !isEdit;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

void EnterFileName(HWND dialog, const std::wstring& name) {
    HWND field = GetDlgItem(dialog, kFileName);
    if (!field) field = EditOf(dialog);
    SendMessageW(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

}  // namespace tarvik
