#include "tests/support/dialog_driver.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/waiting.h"

namespace tarvik {

namespace {

constexpr int kFileName = 0x47C;  // cmb13 of the system's file dialogs

std::atomic<DWORD> dialogThread{0};

struct Search {
    HWND other;
    HWND found;
};

HWND DialogNow(HWND other) {
    Search search = {other, nullptr};
    EnumThreadWindows(
        dialogThread,
        [](HWND window, LPARAM parameter) -> BOOL {
            auto& search = *reinterpret_cast<Search*>(parameter);
            wchar_t name[16] = {};
            GetClassNameW(window, name, 16);
            if (window == search.other || wcscmp(name, L"#32770") != 0 || !IsWindowVisible(window))
                return TRUE;
            search.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace

void AnswerDialogs(const std::function<void()>& call, const std::function<void(HWND)>& user) {
    dialogThread = GetCurrentThreadId();
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
    wchar_t text[1000] = {};
    GetDlgItemTextW(dialog, item, text, 1000);
    return text;
}

bool Press(HWND dialog, int button) {
    // Posted, like a click: under Wine, a dialog that is closed by a sent message may swallow a posted one.
    PostMessageW(dialog, WM_COMMAND, button, 0);
    return WaitFor([&] { return !IsWindow(dialog); });
}

void EnterFileName(HWND dialog, const std::wstring& name) {
    SetDlgItemTextW(dialog, kFileName, name.c_str());
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

}  // namespace tarvik
