// The view of a page with the real engine, driven by real input and checked by its pixels.

#include "page_control/view/page_view.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "tests/page_control/view/hosted_page.h"
#include "tests/support/clipboard.h"

namespace tarvik {
namespace {

constexpr COLORREF kGreen = RGB(0, 160, 0);
constexpr COLORREF kRed = RGB(200, 0, 0);

TEST_F(HostedPage, ReceivesTypedText) {
    Open(R"(<input id="first"><input id="second"><script>
        first.addEventListener('keydown', function (event) {
            log.push([event.key, event.code, event.shiftKey, event.location, event.keyCode].join('/'));
        });</script>)");
    ClickAt(MiddleOf(L"first"));
    ASSERT_TRUE(Becomes(L"document.activeElement.id", L"first"));
    Type(L"aB1!");
    EXPECT_TRUE(Becomes(L"first.value", L"aB1!"));
    EXPECT_EQ(Evaluate(L"log.join(' ')"),
              L"a/KeyA/false/0/65 Shift/ShiftLeft/true/1/16 B/KeyB/true/0/66 "
              L"1/Digit1/false/0/49 Shift/ShiftLeft/true/1/16 !/Digit1/true/0/49");
    Type(L"\u00FC\u6F22x\U0001F600");
    EXPECT_TRUE(Becomes(L"first.value", L"aB1!\u00FC\u6F22x\U0001F600"));
    PressKeys({VK_BACK});
    EXPECT_TRUE(Becomes(L"first.value", L"aB1!\u00FC\u6F22x"));
    Type(L" two");
    PressKeys({VK_CONTROL, VK_BACK});
    EXPECT_TRUE(Becomes(L"first.value", L"aB1!\u00FC\u6F22x "));
    PressKeys({VK_TAB});
    ASSERT_TRUE(Becomes(L"document.activeElement.id", L"second"));
    // Characters of an input method are text, too.
    SendMessageW(PageWindow(), WM_IME_CHAR, 0x8A9E, 1);
    EXPECT_TRUE(Becomes(L"second.value", L"\u8A9E"));
    // With AltGr, too; the engine would take Ctrl and Alt for a shortcut.
    BYTE keys[256] = {};
    keys[VK_CONTROL] = keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(PageWindow(), WM_CHAR, L'\u20AC', 1);
    keys[VK_CONTROL] = keys[VK_MENU] = 0;
    SetKeyboardState(keys);
    EXPECT_TRUE(Becomes(L"second.value", L"\u8A9E\u20AC"));
    PressKeys({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(Becomes(L"document.activeElement.id", L"first"));
    // A run of letters is one step of undoing.
    Evaluate(L"first.value = ''");
    Type(L"one \u00FC two");
    EXPECT_TRUE(Becomes(L"first.value", L"one \u00FC two"));
    PressKeys({VK_CONTROL, 'Z'});
    EXPECT_TRUE(Becomes(L"first.value", L""));
}

// In a window that is larger than the engine's own, to which its full screen would clip the picture.
TEST_F(HostedPage, GetsTheKeysOfTheBrowsersShortcuts) {
    const WORD kShift = VK_SHIFT, kControl = VK_CONTROL, kAlt = VK_MENU;
    const std::vector<WORD> kShortcuts[] = {
        {VK_F1},
        {VK_F3},
        {VK_F6},
        {VK_F7},
        {VK_F11},
        {VK_F12},
        {VK_ESCAPE},
        {kShift, VK_ESCAPE},
        {kControl, VK_TAB},
        {kControl, VK_F4},
        {kControl, VK_PRIOR},
        {kControl, VK_NEXT},
        {kControl, VK_ADD},
        {kControl, VK_SUBTRACT},
        {kControl, '1'},
        {kControl, '9'},
        {kControl, 'D'},
        {kControl, 'E'},
        {kControl, 'F'},
        {kControl, 'G'},
        {kControl, 'H'},
        {kControl, 'J'},
        {kControl, 'K'},
        {kControl, 'N'},
        {kControl, 'P'},
        {kControl, 'R'},
        {kControl, 'S'},
        {kControl, 'T'},
        {kControl, 'U'},
        {kControl, 'W'},
        {kControl, kShift, VK_DELETE},
        {kControl, kShift, 'A'},
        {kControl, kShift, 'B'},
        {kControl, kShift, 'I'},
        {kControl, kShift, 'J'},
        {kControl, kShift, 'N'},
        {kControl, kShift, 'O'},
        {kControl, kShift, 'Q'},
        {kControl, kShift, 'R'},
        {kControl, kShift, 'T'},
        {kControl, kShift, 'W'},
        {kAlt, VK_HOME},
        {kAlt, 'D'},
        {kAlt, VK_LEFT},
        {kAlt, VK_RIGHT},
        {VK_BROWSER_BACK},
        {VK_BROWSER_HOME},
        {VK_BROWSER_REFRESH},
        {VK_BROWSER_SEARCH},
    };
    Open(R"(<style>html { background: rgb(0, 160, 0); }</style><script>
        var colours = ['rgb(0, 160, 0)', 'rgb(200, 0, 0)'];
        function isModifier(event) { return event.keyCode >= 16 && event.keyCode <= 18; }
        addEventListener('keydown', function (event) { if (!isModifier(event)) log = ['down']; });
        addEventListener('keyup', function (event) {
            log.push(event.keyCode);
            if (!isModifier(event)) document.documentElement.style.background = colours.reverse()[0];
        });</script>)");
    const SIZE size = {1000, 680};
    SetWindowPos(Frame(), nullptr, 60, 40, size.cx, size.cy, SWP_NOZORDER);
    RECT area = {};
    GetClientRect(PageWindow(), &area);
    const POINT corner = OnScreen({area.right - 3, area.bottom - 3});
    ClickAt(OnScreen({100, 100}));
    COLORREF colour = kGreen;
    ASSERT_TRUE(PixelBecomes(corner, colour));
    const std::wstring state =
        L"[innerWidth, innerHeight, document.hasFocus(), document.visibilityState, log]";
    const std::wstring expected =
        std::to_wstring(area.right) + L"," + std::to_wstring(area.bottom) + L",true,visible,down,";
    for (const std::vector<WORD>& keys : kShortcuts) {
        SCOPED_TRACE(testing::PrintToString(keys));
        PressKeys(keys);
        std::wstring released;
        for (auto key = keys.rbegin(); key != keys.rend(); ++key)
            released += (released.empty() ? L"" : L",") + std::to_wstring(*key);
        ASSERT_TRUE(Becomes(state, expected + released));
        colour = colour == kGreen ? kRed : kGreen;
        ASSERT_TRUE(PixelBecomes(corner, colour));
    }
}

// The engine starts with a blank page, which is no part of the window's history.
TEST_F(HostedPage, GoesBackToItsFirstDocumentOnly) {
    Open(
        "<script>function place() { return [location.hash || 'first', history.length, log.length].join(); }"
        "addEventListener('mouseup', function () { log.push(1); });"
        "addEventListener('keyup', function () { log.push(1); });</script>");
    MovePointer(OnScreen({100, 100}));
    const auto pressBack = [] {
        for (const DWORD action : {MOUSEEVENTF_XDOWN, MOUSEEVENTF_XUP})
            Send(MouseInputOf(action, XBUTTON1));
    };
    EXPECT_EQ(Evaluate(L"place()"), L"first,1,0");
    pressBack();
    EXPECT_TRUE(Becomes(L"place()", L"first,1,1"));
    PressKeys({VK_MENU, VK_LEFT});
    EXPECT_TRUE(Becomes(L"place()", L"first,1,3"));
    Evaluate(L"history.back(); location = '?second'; 0");
    EXPECT_TRUE(Becomes(L"location.search", L"?second"));
    EXPECT_TRUE(Becomes(L"document.readyState", L"complete"));
    pressBack();
    EXPECT_TRUE(Becomes(L"location.search", L""));
    pressBack();
    PressKeys({VK_MENU, VK_RIGHT});
    EXPECT_TRUE(Becomes(L"location.search", L"?second"));
}

// Only in fields and where the page's styles say so: the host makes pages behave like a dialog.
TEST_F(HostedPage, SelectsByClicksAndByDragging) {
    Open(R"(<style>p { margin: 20px; } .text { user-select: text; }</style>
        <p class="text">wonderful</p><p class="text">another line</p><p>not selected</p>
        <textarea id="field" style="margin: 0 20px; padding: 0; border: 0">several words</textarea><script>
        logEvents('dblclick');</script>)");
    const std::wstring selected = L"getSelection().toString().trim()";
    const POINT field = MiddleOf(L"field"), left = OnScreen({40, 28});
    ClickAt(left, MOUSEEVENTF_LEFTDOWN, 2);
    EXPECT_TRUE(Becomes(selected, L"wonderful"));
    // Elsewhere, to avoid a triple click; then from the first line over the window's edge.
    ClickAt({left.x, left.y + 38});
    EXPECT_TRUE(Becomes(selected, L""));
    MovePointer(OnScreen({20, 28}));
    Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
    for (const LONG x : {40, 200, 480, 560})
        MovePointer(OnScreen({x, 30}));
    Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
    EXPECT_TRUE(Becomes(selected, L"wonderful"));
    EXPECT_TRUE(PumpUntil([] { return !GetCapture(); }));
    ClickAt({left.x, left.y + 76}, MOUSEEVENTF_LEFTDOWN, 2);
    EXPECT_TRUE(Becomes(L"log.length", L"2"));
    EXPECT_EQ(Evaluate(selected), L"wonderful") << "nothing of this line";
    ClickAt({left.x, field.y - 8}, MOUSEEVENTF_LEFTDOWN, 2);
    EXPECT_TRUE(Becomes(selected, L"several"));
}

TEST_F(HostedPage, ScrollsByTheWheel) {
    Open(R"(<div style="width: 3000px; height: 3000px"></div><script>
        onwheel = function (event) { log.push(event.clientX + ' ' + event.clientY); };</script>)");
    MovePointer(OnScreen({100, 110}));
    Send(MouseInputOf(MOUSEEVENTF_WHEEL, 0u - 2 * WHEEL_DELTA));
    EXPECT_TRUE(Becomes(L"scrollX + ' ' + scrollY", L"0 200"));
    constexpr DWORD kTilt = 0x1000;  // MOUSEEVENTF_HWHEEL
    Send(MouseInputOf(kTilt, WHEEL_DELTA));
    EXPECT_TRUE(Becomes(L"scrollX + ' ' + scrollY", L"100 200"));
    Send(MouseInputOf(MOUSEEVENTF_WHEEL, WHEEL_DELTA / 2));
    EXPECT_TRUE(Becomes(L"scrollX + ' ' + scrollY", L"100 150"));
    EXPECT_EQ(Evaluate(L"log.join()"), L"100 110,100 110,100 110");
}

// The engine throws away what comes while a page's script waits for an answer.
TEST_F(HostedPage, LosesNoInputOfAPageThatMakesNativeCalls) {
    Open(R"(<button id="button">Count</button><input id="field"><script>
        var own = external.window, clicks = 0;
        button.onclick = function () { clicks++; own.isVisible(); own.isVisible(); };
        field.onkeydown = function () { own.isVisible(); own.isVisible(); };
        setInterval(function () { own.isVisible(); own.isVisible(); }, 15);</script>)");
    const POINT middle = MiddleOf(L"button");
    constexpr int kClicks = 60;
    MovePointer(middle);
    for (int i = 0; i < kClicks; ++i) {
        Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
        Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
        PumpUntil([] { return false; }, std::chrono::milliseconds(i % 7));
    }
    EXPECT_TRUE(Becomes(L"clicks", std::to_wstring(kClicks)));
    ClickAt(MiddleOf(L"field"));
    ASSERT_TRUE(Becomes(L"document.activeElement.id", L"field"));
    const std::wstring text = L"The quick brown fox jumps over the lazy dog";
    Type(text);
    EXPECT_TRUE(Becomes(L"field.value", text));
    EXPECT_EQ(Evaluate(L"clicks"), std::to_wstring(kClicks)) << "nor sends anything twice";
}

// A menu or the dragging of a window takes the capture.
TEST_F(HostedPage, EndsADragWhenTheCaptureIsLost) {
    Open(R"(<button id="button" style="width: 200px; height: 200px">Drag</button><script>
        logEvents('mousedown', 'mouseup');
        button.onclick = function () { log.push('clicked'); };
        var held;
        onmousemove = function (event) { held = event.buttons; };</script>)");
    MovePointer(OnScreen({100, 100}));
    Send(MouseInputOf(MOUSEEVENTF_LEFTDOWN));
    MovePointer(OnScreen({120, 100}));
    EXPECT_TRUE(Becomes(L"held", L"1"));
    SetCapture(Frame());
    EXPECT_TRUE(Becomes(L"log[1]", L"mouseup"));
    Send(MouseInputOf(MOUSEEVENTF_LEFTUP));
    ReleaseCapture();
    MovePointer(OnScreen({140, 100}));
    EXPECT_TRUE(Becomes(L"held", L"0"));
    EXPECT_EQ(Evaluate(L"log.join()"), L"mousedown,mouseup");
}

// ---- Clipboard

TEST_F(HostedPage, ShowsAMenuOnTextFields) {
    Open(R"(<p id="text" style="height: 60px">Text</p><input id="field" style="margin-left: 150px"><script>
        logEvents('paste');</script>)");
    const POINT field = MiddleOf(L"field");
    const auto visibleMenu = [] {
        const std::vector<HWND> menus = TopWindows(L"#32768");
        const auto visible = std::ranges::find_if(menus, IsWindowVisible);
        return visible == menus.end() ? nullptr : *visible;
    };
    // Chooses from the menu by a letter; returns the menu's rectangle. A menu that has just been shown may
    // not get the key yet.
    const auto choose = [&](WORD letter) {
        RECT place = {};
        std::atomic<bool> chosen = false;
        const std::jthread person([&] {
            EXPECT_TRUE(WaitFor([&] { return GetWindowRect(visibleMenu(), &place); }));
            EXPECT_TRUE(WaitFor([&] {
                PressKeys({letter});
                return WaitFor([&] { return !visibleMenu(); }, 2000);
            }));
            chosen = true;
        });
        ClickAt(field, MOUSEEVENTF_RIGHTDOWN);
        EXPECT_TRUE(PumpUntil([&] { return chosen.load(); }));
        return place;
    };
    SetClipboardText(L"from \u00FCberall");
    const RECT menu = choose('P');
    EXPECT_NEAR(menu.left, field.x, 3);
    EXPECT_NEAR(menu.top, field.y, 3);
    EXPECT_TRUE(Becomes(L"field.value", L"from \u00FCberall"));
    EXPECT_EQ(Evaluate(L"log.join()"), L"paste");
    choose('A');
    EXPECT_TRUE(Becomes(L"field.selectionEnd - field.selectionStart", L"12"));
    SetClipboardText(L"");
    choose('T');
    EXPECT_TRUE(Becomes(L"field.value", L""));
    EXPECT_TRUE(PumpUntil([] { return ClipboardText() == L"from \u00FCberall"; }));
}

TEST_F(HostedPage, SharesTheSystemsClipboard) {
    Open(
        R"(<input id="first" value="some text"><textarea id="second"></textarea><input id="secret" type="password"
        value="hidden"><button id="copy">Copy</button><script>
        logEvents('copy', 'cut', 'paste');
        copy.onclick = function () {
            addEventListener('copy', function (event) {
                event.clipboardData.setData('text/plain', 'by the page');
                event.preventDefault();
            }, { once: true });
            document.execCommand('copy');
        };</script>)");
    const auto holds = [](const wchar_t* text) { return PumpUntil([=] { return ClipboardText() == text; }); };
    ClickAt(MiddleOf(L"first"));
    PressKeys({VK_CONTROL, 'A'});
    PressKeys({VK_CONTROL, 'C'});
    EXPECT_TRUE(holds(L"some text"));
    PressKeys({VK_CONTROL, 'X'});
    EXPECT_TRUE(Becomes(L"first.value", L""));
    SetClipboardText(L"two\nlines \u6F22");
    ClickAt(MiddleOf(L"second"));
    // Later keys arrive after the text.
    PressKeys({VK_CONTROL, 'V'});
    Type(L"!");
    PressKeys({VK_SHIFT, VK_INSERT});
    EXPECT_TRUE(Becomes(L"second.value", L"two\nlines \u6F22!two\nlines \u6F22"));
    EXPECT_EQ(Evaluate(L"log.join()"), L"copy,cut,paste,paste");
    ClickAt(MiddleOf(L"copy"));
    EXPECT_TRUE(holds(L"by the page"));
    ClickAt(MiddleOf(L"secret"));
    PressKeys({VK_CONTROL, 'A'});
    PressKeys({VK_CONTROL, 'C'});
    EXPECT_TRUE(Becomes(L"document.activeElement.selectionEnd", L"6"));
    EXPECT_TRUE(holds(L"by the page"));
}

// ---- The pointer

TEST_F(HostedPage, SetsTheCursor) {
    Open(R"(<a id="link" href="#">A link</a><br><input id="field"><br>
        <span id="words" style="user-select: text">Words</span> <span id="fixed">Words</span>
        <div id="wait" style="cursor: url(none.png), wait">Busy</div>
        <div id="none" style="height: 40px"></div>
        <iframe id="frame" srcdoc="<body style='margin: 0; height: 90px; cursor: crosshair'>" height="100"></iframe>
        )");
    const std::pair<const wchar_t*, LPWSTR> kShapes[] = {
        {L"link", IDC_HAND}, {L"field", IDC_IBEAM}, {L"words", IDC_IBEAM}, {L"fixed", IDC_ARROW},
        {L"wait", IDC_WAIT}, {L"none", IDC_ARROW},  {L"frame", IDC_CROSS},
    };
    for (const auto& [id, shape] : kShapes) {
        const HCURSOR expected = LoadCursorW(nullptr, shape);
        const POINT place = MiddleOf(id);
        // Faster than the page is queried.
        for (int step = 5; step > 0; --step)
            Send(MoveOf({place.x, place.y - step}));
        MovePointer(place);
        EXPECT_TRUE(PumpUntil([&] { return GetCursor() == expected; }))
            << Evaluate(std::wstring(L"'") + id + L"'").c_str();
    }
}

TEST_F(HostedPage, ReportsItsPositionOnTheScreen) {
    Open(
        R"(<script>var place; onmousemove = function (event) { place = event.screenX + ' ' + event.screenY; };
        </script>)");
    const auto text = [](LONG x, LONG y) { return std::to_wstring(x) + L" " + std::to_wstring(y); };
    const std::wstring outer = L"[screenX, screenY, outerWidth, outerHeight].join(' ')";
    EXPECT_EQ(Evaluate(L"screen.width + ' ' + screen.height"),
              text(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    for (const POINT corner : {POINT{60, 50}, POINT{237, 91}, POINT{-40, 20}}) {
        SetWindowPos(Frame(), nullptr, corner.x, corner.y, 560, 430, SWP_NOZORDER);
        const POINT pointer = OnScreen({200, 100});
        // The positions of the page and of the pointer take different paths.
        MovePointer({pointer.x - 10, pointer.y});
        EXPECT_TRUE(Becomes(outer, text(std::max<LONG>(0, corner.x), corner.y) + L" 560 430"));
        MovePointer(pointer);
        EXPECT_TRUE(Becomes(L"place", text(pointer.x, pointer.y)));
    }
}

// ---- The picture

// The picture would not contain native lists.
TEST_F(HostedPage, DrawsDropDownLists) {
    Open(R"(<style>option { background: rgb(0, 160, 0); height: 30px; }
        select { appearance: none; width: 150px; height: 30px; }</style>
        <select id="list"><option>One<option>Two<option>Three</select><script>logEvents('change');</script>)");
    const POINT list = MiddleOf(L"list");
    ClickAt(list);
    const POINT second = {list.x + 50, list.y + 30 + 45 - 15};
    ASSERT_TRUE(PixelBecomes(second, kGreen));
    ClickAt(second);
    EXPECT_TRUE(Becomes(L"list.value + ' ' + log.join()", L"Two change"));
    PressKeys({VK_DOWN});
    PressKeys({VK_DOWN});
    PressKeys({VK_RETURN});
    EXPECT_TRUE(Becomes(L"list.value", L"Three"));
}

TEST_F(HostedPage, FollowsTheWindowsSize) {
    Open(
        R"(<div style="position: fixed; right: 0; bottom: 0; width: 20px; height: 20px; background: #00a000"></div>)");
    for (const SIZE size : {SIZE{700, 500}, SIZE{350, 280}, SIZE{640, 300}}) {
        SetWindowPos(Frame(), nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        RECT area = {};
        GetClientRect(PageWindow(), &area);
        EXPECT_TRUE(PixelBecomes(OnScreen({area.right - 3, area.bottom - 3}), kGreen));
        EXPECT_TRUE(Becomes(L"innerWidth + ' ' + innerHeight",
                            std::to_wstring(area.right) + L" " + std::to_wstring(area.bottom)));
    }
}

TEST_F(HostedPage, UpdatesThePictureWhenItIsShownAgain) {
    Open(R"(<div id="box" style="width: 90px; height: 90px; background: #c80000"></div>)");
    const POINT box = MiddleOf(L"box");
    for (const bool minimise : {true, false}) {
        ShowWindow(Frame(), minimise ? SW_MINIMIZE : SW_HIDE);
        // More frames than the screencast sends for an invisible window.
        Evaluate(
            L"turns = 0, timer = setInterval(function () {"
            L"box.style.background = ++turns % 2 ? 'blue' : 'yellow' }, 5)");
        EXPECT_TRUE(Becomes(L"turns > 200", L"true"));
        Evaluate(L"clearInterval(timer), box.style.background = '#00a000'");
        ShowWindow(Frame(), minimise ? SW_RESTORE : SW_SHOW);
        EXPECT_TRUE(PixelBecomes(box, kGreen));
        Evaluate(L"box.style.background = '#c80000'");
        EXPECT_TRUE(PixelBecomes(box, kRed));
    }
}

// Small changes without input are shown at a lower rate; larger ones, input and the last change are not late.
TEST_F(HostedPage, PacesSmallAnimations) {
    Open(R"(<style>#box { width: 200px; height: 200px; background: #c80000; }
        #spinner { width: 20px; height: 20px; animation: turn 1s linear infinite; }
        @keyframes turn { from { background: red } to { background: blue } }</style>
        <div id="box" onclick="style.background = '#0000c8'"></div><div id="spinner"></div>)");
    const POINT box = MiddleOf(L"box"), spinner = MiddleOf(L"spinner");
    // Counts the colours of the spinner for as long as sixty frames would take a second.
    const auto changes = [&] {
        int count = 0;
        COLORREF last = PixelAt(spinner);
        const ULONGLONG end = GetTickCount64() + 1000;
        while (GetTickCount64() < end) {
            PumpOnce();
            count += std::exchange(last, PixelAt(spinner)) != last;
        }
        return count;
    };
    ASSERT_TRUE(PumpUntil([&] { return changes() < 20; }));
    EXPECT_GT(changes(), 0);
    Evaluate(L"box.style.background = '#00a000'");
    EXPECT_TRUE(PixelBecomes(box, kGreen));
    ASSERT_TRUE(PumpUntil([&] { return changes() < 20; }));
    ClickAt(box);
    EXPECT_TRUE(PixelBecomes(box, RGB(0, 0, 200)));
    ASSERT_TRUE(PumpUntil([&] { return changes() < 20; }));
    Evaluate(L"spinner.style.animation = 'none', spinner.style.background = '#00a000'");
    EXPECT_TRUE(PixelBecomes(spinner, kGreen));
}

}  // namespace
}  // namespace tarvik
