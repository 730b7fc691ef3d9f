#include "tests/support/dialog_driver.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "tests/support/waiting.h"

namespace tarvik {

namespace {

constexpr unsigned long kTimeout = 10'000;
constexpr DWORD kPause = 10;
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
        for (ULONGLONG grace = GetTickCount64() + 1000; !over; Sleep(kPause)) {
            const HWND left = GetTickCount64() > grace ? DialogNow(nullptr) : nullptr;
            if (!left) continue;
            ADD_FAILURE() << "a dialog is still open";
            for (const int button : {IDCANCEL, IDNO, IDOK})
                PostMessageW(left, WM_COMMAND, button, 0);
            grace = GetTickCount64() + 1000;
        }
    });
    call();
    over = true;
    other.join();
}

HWND NextDialog(HWND other) {
    HWND dialog = nullptr;
    EXPECT_TRUE(WaitFor([&] { return (dialog = DialogNow(other)) != nullptr; }, kTimeout))
        << "no dialog was opened";
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
    return WaitFor([&] { return !IsWindow(dialog); }, kTimeout);
}

void EnterFileName(HWND dialog, const std::wstring& name) {
    SetDlgItemTextW(dialog, kFileName, name.c_str());
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

}  // namespace tarvik
