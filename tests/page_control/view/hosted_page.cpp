#include "tests/page_control/view/hosted_page.h"

#include "atl/ax_window.h"

namespace tarvik {

namespace {

// With functions for the test's queries.
constexpr const char* kHead = R"(<!DOCTYPE html><meta charset="utf-8"><title>Page</title>
<style>html, body { margin: 0; font: 16px sans-serif; background: white; }</style>
<script>
  function evaluate(text) { return String(eval(text)); }
  function middleOf(id) {
    var box = document.getElementById(id).getBoundingClientRect();
    return Math.round((box.left + box.right) / 2) * 10000 + Math.round((box.top + box.bottom) / 2);
  }
  var log = [];
  function logEvents() {
    for (var i = 0; i < arguments.length; i++)
      addEventListener(arguments[i], function (event) { log.push(event.type); }, true);
  }
</script>
<div style="position: fixed; left: 0; top: 0; width: 4px; height: 4px; background: #0180fe"></div>
)";
constexpr COLORREF kReady = RGB(1, 128, 254);
constexpr RECT kArea = {60, 50, 560, 450};

}  // namespace

HostedPage::HostedPage() {
    appModule.AddMessageLoop(&loop_);
}

HostedPage::~HostedPage() {
    if (frame_) DestroyWindow(frame_);
    PumpOnce();
    browser_.Reset();
    appModule.RemoveMessageLoop();
}

void HostedPage::Open(const std::string& html) {
    const std::wstring path = folder_.Write(L"page.html", kHead + html);
    browser_ = MakeCom<CWebBrowser>();
    frame_ = browser_->CreateHidden(nullptr, path.c_str());
    ASSERT_TRUE(frame_);
    RECT outer = kArea;
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(frame_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(frame_, GWL_EXSTYLE)));
    SetWindowPos(frame_, HWND_TOP, outer.left, outer.top, outer.right - outer.left, outer.bottom - outer.top,
                 SWP_SHOWWINDOW);
    SetForegroundWindow(frame_);
    page_ = InnermostWindow(frame_);
    ASSERT_TRUE(PixelBecomes(OnScreen({2, 2}), kReady));
    ASSERT_TRUE(Becomes(L"document.readyState", L"complete"));
}

ComPtr<IDispatch> HostedPage::Script() const {
    return ScriptOf(AtlAxGetControl(frame_).Get());
}

std::wstring HostedPage::Evaluate(const std::wstring& expression) const {
    const InvokeResult result = CallMember(Script().Get(), L"evaluate", expression.c_str());
    return result.value.Is(VT_BSTR) ? std::wstring(Bstr::View(result.value.bstrVal)) : L"(no result)";
}

testing::AssertionResult HostedPage::Becomes(const std::wstring& expression,
                                             const std::wstring& expected) const {
    std::wstring last;
    if (PumpUntil([&] { return (last = Evaluate(expression)) == expected; }))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "it is " << testing::PrintToString(last) << ", not " << testing::PrintToString(expected);
}

POINT HostedPage::MiddleOf(const wchar_t* id) const {
    const LONG both = CallMember(Script().Get(), L"middleOf", id).value.lVal;
    return OnScreen({both / 10000, both % 10000});
}

POINT HostedPage::OnScreen(POINT inPage) const {
    ClientToScreen(page_, &inPage);
    return inPage;
}

COLORREF HostedPage::PixelAt(POINT screen) const {
    ScreenToClient(page_, &screen);
    return PixelOf(page_, screen);
}

testing::AssertionResult HostedPage::PixelBecomes(POINT screen, COLORREF colour) const {
    if (PumpUntil([&] { return PixelAt(screen) == colour; })) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "it is " << std::hex << PixelAt(screen);
}

void HostedPage::Type(std::wstring_view text) const {
    for (const wchar_t unit : text) {
        const SHORT key = VkKeyScanW(unit);
        if (key != -1 && unit < 0x80) {
            const WORD virtualKey = LOBYTE(key);
            PressKeys((HIBYTE(key) & 1) ? std::vector<WORD>{VK_SHIFT, virtualKey} : std::vector{virtualKey});
            continue;
        }
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = unit;
        for (const DWORD flags : {KEYEVENTF_UNICODE, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP}) {
            input.ki.dwFlags = flags;
            Send(input);
        }
        PumpOnce();
    }
}

}  // namespace tarvik
