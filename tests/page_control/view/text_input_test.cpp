// Characters of several keys: dead keys, AltGr, input methods.

#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

constexpr LPARAM kReleased = LPARAM{0xC000} << 16;

LPARAM KeyData(UINT scanCode) {
    return 1 | static_cast<LPARAM>(scanCode) << 16;
}

constexpr const char* kField = R"(<input id="field" autofocus><script>
    ['keydown', 'keypress', 'keyup', 'input', 'compositionstart', 'compositionupdate',
     'compositionend'].forEach(function (type) {
        addEventListener(type, function (event) {
            log.push(type + ':' + (event.key || event.data) + (event.ctrlKey || event.altKey ? '!' : ''));
        }, true);
    });</script>)";

// The test's keyboard layout has no dead keys, so the messages of one are sent.
TEST_F(HostedPage, TypesAccentedLettersWithDeadKeys) {
    Open(kField);
    ASSERT_TRUE(Becomes(L"document.activeElement.id", L"field"));
    const auto send = [this](UINT message, WPARAM wParam, LPARAM data) {
        SendMessageW(PageWindow(), message, wParam, data);
    };
    const LPARAM accent = KeyData(0x0D), letter = KeyData(0x12);
    PostMessageW(PageWindow(), WM_DEADCHAR, L'\u00B4', accent);
    send(WM_KEYDOWN, VK_OEM_6, accent);
    send(WM_KEYUP, VK_OEM_6, accent | kReleased);
    send(WM_KEYDOWN, 'E', letter);
    send(WM_CHAR, L'\u00E9', letter);
    send(WM_KEYUP, 'E', letter | kReleased);
    EXPECT_TRUE(
        Becomes(L"log.join(' ')", L"keydown:Dead keyup:Dead keydown:e keypress:\u00E9 input:\u00E9 keyup:e"));
    EXPECT_EQ(Evaluate(L"field.value"), L"\u00E9");
}

}  // namespace
}  // namespace tarvik
