// Characters of several keys: dead keys, AltGr, input methods.

#include <windows.h>
#include <imm.h>

#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

constexpr LPARAM kReleased = LPARAM{0xC000} << 16;

LPARAM KeyData(UINT scanCode) {
    return 1 | static_cast<LPARAM>(scanCode) << 16;
}

constexpr const char* kField = R"(<input id="field" autofocus><script>
    ['keydown', 'keypress', 'keyup', 'input'].forEach(function (type) {
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

constexpr const char* kFields = R"(<style>#field, textarea { display: block; margin: 20px; width: 120px; }
    #edit { margin: 20px; padding: 3px; user-select: text; outline: 1px solid }</style>
    <input id="field" value="ab"><textarea id="area">ab</textarea><div id="edit" contenteditable>ab</div>
    <input id="secret" type="password"><script>
    ['input', 'compositionstart', 'compositionupdate', 'compositionend'].forEach(function (type) {
        addEventListener(type, function (event) { log.push(type + ':' + event.data); }, true);
    });
    function endOf(element) {
        const style = getComputedStyle(element), context = document.createElement('canvas').getContext('2d');
        context.font = style.font;
        return Math.round(element.getBoundingClientRect().left + element.clientLeft + parseFloat(style.paddingLeft) +
            context.measureText(element.value || element.textContent).width);
    }
    function isInside(element, y) {
        const box = element.getBoundingClientRect();
        return y > box.top && y < box.bottom;
    }</script>)";

// The input context of a window, with which an input method composes.
class Composer {
  public:
    explicit Composer(HWND window) : window_(window), context_(ImmGetContext(window)) {}
    ~Composer() { ImmReleaseContext(window_, context_); }
    Composer(const Composer&) = delete;
    Composer& operator=(const Composer&) = delete;

    bool IsEnabled() const { return context_ != nullptr; }
    void Compose(std::wstring text) {
        EXPECT_TRUE(ImmSetCompositionStringW(context_, SCS_SETSTR, text.data(),
                                             static_cast<DWORD>(text.size() * sizeof(wchar_t)), nullptr, 0));
    }
    void End(DWORD how) { ImmNotifyIME(context_, NI_COMPOSITIONSTR, how, 0); }
    POINT Place() const {
        COMPOSITIONFORM form = {};
        ImmGetCompositionWindow(context_, &form);
        return form.ptCurrentPos;
    }

  private:
    HWND window_;
    HIMC context_;
};

TEST_F(HostedPage, ShowsTheTextThatAnInputMethodComposes) {
    Open(kFields);
    const std::wstring composed =
        L"compositionstart: compositionupdate:\u306B input:\u306B "
        L"compositionupdate:\u65E5\u672C input:\u65E5\u672C";
    for (const std::wstring id : {L"field", L"area", L"edit"}) {
        SCOPED_TRACE(testing::PrintToString(id));
        const std::wstring value = id + (id == L"edit" ? L".textContent" : L".value");
        ClickAt(MiddleOf(id.c_str()));
        ASSERT_TRUE(Becomes(L"document.activeElement.id", id));
        PressKeys({VK_CONTROL, VK_END});
        Composer composer(PageWindow());
        const auto compose = [&] {
            Evaluate(L"log = []");
            composer.Compose(L"\u306B");
            composer.Compose(L"\u65E5\u672C");
            EXPECT_TRUE(Becomes(value, L"ab\u65E5\u672C"));
        };
        // The windows of the input method follow the caret.
        compose();
        EXPECT_TRUE(PumpUntil([&] {
            return std::to_wstring(composer.Place().x) == Evaluate(L"endOf(" + id + L")");
        })) << composer.Place().x
            << testing::PrintToString(Evaluate(L"endOf(" + id + L")"));
        EXPECT_EQ(Evaluate(L"isInside(" + id + L", " + std::to_wstring(composer.Place().y) + L")"), L"true");
        IMECHARPOSITION position = {sizeof position};
        EXPECT_TRUE(SendMessageW(PageWindow(), WM_IME_REQUEST, IMR_QUERYCHARPOSITION,
                                 reinterpret_cast<LPARAM>(&position)));
        EXPECT_EQ(position.pt.x, OnScreen(composer.Place()).x);
        composer.End(CPS_CANCEL);
        EXPECT_TRUE(Becomes(L"log.join(' ')", composed + L" compositionupdate: input:null compositionend:"));
        EXPECT_EQ(Evaluate(value), L"ab");
        compose();
        composer.End(CPS_COMPLETE);
        EXPECT_TRUE(Becomes(L"log.join(' ')", composed +
                                                  L" compositionupdate:\u65E5\u672C input:\u65E5\u672C "
                                                  L"compositionend:\u65E5\u672C"));
        EXPECT_EQ(Evaluate(value), L"ab\u65E5\u672C");
    }
    // A click keeps the text, and a field for passwords gets keys only.
    Composer(PageWindow()).Compose(L"\u306B");
    EXPECT_TRUE(Becomes(L"edit.textContent", L"ab\u65E5\u672C\u306B"));
    ClickAt(MiddleOf(L"secret"));
    EXPECT_TRUE(Becomes(L"log[log.length - 1]", L"compositionend:\u306B"));
    EXPECT_EQ(Evaluate(L"edit.textContent"), L"ab\u65E5\u672C\u306B");
    EXPECT_TRUE(PumpUntil([&] { return !Composer(PageWindow()).IsEnabled(); }));
    ClickAt(MiddleOf(L"field"));
    EXPECT_TRUE(PumpUntil([&] { return Composer(PageWindow()).IsEnabled(); }));
}

}  // namespace
}  // namespace tarvik
