#include "page_control/printing/progress_dialog.h"

#include <atomic>

#include "tests/support/dialog_driver.h"
#include "tests/support/screen.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

TEST(ProgressDialog, ShowsTheTextUntilTheEndOrUntilTheUserCancels) {
    std::atomic<bool> over = false;
    const auto poll = [&]() -> std::optional<std::wstring> {
        if (over) return std::nullopt;
        return L"page 1";
    };
    AnswerDialogs([&] { EXPECT_TRUE(ShowProgress(nullptr, L"Print", poll)); },
                  [&](HWND dialog) {
                      EXPECT_EQ(TextOf(dialog), L"Print");
                      EXPECT_EQ(TextOf(dialog, 100), L"page 1");
                      over = true;
                  });
    EXPECT_TRUE(ShowProgress(nullptr, L"Print", poll));  // without a dialog
    over = false;
    AnswerDialogs([&] { EXPECT_FALSE(ShowProgress(nullptr, L"Print", poll)); },
                  [](HWND dialog) { EXPECT_TRUE(Press(dialog, IDCANCEL)); });
}

}  // namespace
}  // namespace tarvik
