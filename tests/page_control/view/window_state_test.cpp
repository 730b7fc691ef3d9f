// The state of the window as its page sees it: focus, visibility, size, full screen.

#include "page_control/view/window_state.h"

#include "tests/page_control/view/hosted_page.h"

namespace tarvik {
namespace {

RECT PlaceOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    return place;
}

std::wstring Text(LONG x, LONG y, LONG width, LONG height) {
    return std::to_wstring(x) + L" " + std::to_wstring(y) + L" " + std::to_wstring(width) + L" " +
           std::to_wstring(height);
}

TEST_F(HostedPage, HasTheFocusAndTheVisibilityOfItsWindow) {
    Open(R"(<script>logEvents('focus', 'blur');
        document.addEventListener('visibilitychange', function () { log.push(document.visibilityState); });
        var moves = 0;
        onmousemove = function () { moves++; };
        onclick = function () { log = ['clicked']; };
        function state() { return document.hasFocus() + ' ' + document.visibilityState; }</script>)");
    // With each change of the state comes one event of it.
    const auto becomes = [&](const wchar_t* state, const wchar_t* events) {
        EXPECT_TRUE(Becomes(L"state()", state));
        EXPECT_TRUE(Becomes(L"log.slice().sort().join()", events));
        Evaluate(L"log = []");
    };
    ClickAt(OnScreen({200, 100}));  // after which the engine would keep the focus
    ASSERT_TRUE(Becomes(L"log.join()", L"clicked"));
    Evaluate(L"log = []");
    for (int i = 0; i < 2; ++i) {
        const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 600, 500, 50, 50, nullptr,
                                         nullptr, nullptr, nullptr);
        SetForegroundWindow(other);
        becomes(L"false visible", L"blur");
        Evaluate(L"moves = 0");
        MovePointer(OnScreen({200, 120 + 20 * i}));
        EXPECT_TRUE(Becomes(L"moves > 0", L"true"));
        becomes(L"false visible", L"blur,focus");
        DestroyWindow(other);
        SetForegroundWindow(Frame());
        becomes(L"true visible", L"focus");
        ShowWindow(Frame(), i ? SW_HIDE : SW_MINIMIZE);
        becomes(L"false hidden", L"blur,hidden");
        ShowWindow(Frame(), i ? SW_SHOW : SW_RESTORE);
        becomes(L"true visible", L"focus,visible");
    }
}

TEST_F(HostedPage, HasAMouseWithPressure) {
    Open(R"(<script>onpointerdown = onpointerup = function (event) { log.push(event.pressure); };</script>)");
    EXPECT_EQ(Evaluate(L"matchMedia('(hover: hover) and (pointer: fine)').matches"), L"true");
    ClickAt(OnScreen({100, 100}));
    EXPECT_TRUE(Becomes(L"log.join()", L"0.5,0"));
}

// The engine loses events of a page whose script waits for an answer.
TEST_F(HostedPage, SeesEachSizeThoughItMakesNativeCalls) {
    Open(R"(<script>
        var own = external.window, width = 508, resized, observed;
        addEventListener('resize', function () { resized = innerWidth; });
        new ResizeObserver(function () { observed = innerWidth; }).observe(document.documentElement);
        setInterval(function () { own.isVisible(); }, 40);
        function next() { own.width = width += 10; }
        setInterval(function () {
            if (width < 608 && resized == width - 8 && observed == width - 8) next();
        }, 20);</script>)");
    Evaluate(L"next()");
    EXPECT_TRUE(Becomes(L"resized + ' ' + observed", L"600 600"));
}

// The same for focus and visibility: the state changes, without an event.
TEST_F(HostedPage, SeesEachStateThoughItMakesNativeCalls) {
    Open(R"(<input id="field"><script>
        var own = external.window, channel = new MessageChannel();
        onfocus = onblur = function (event) { log.push(event.type); };
        document.addEventListener('visibilitychange', function () { log.push(document.visibilityState); });
        field.onblur = field.onfocus = function (event) { log.push('field ' + event.type); };
        channel.port1.onmessage = function () { own.isVisible(); channel.port2.postMessage(0); };</script>)");
    ClickAt(MiddleOf(L"field"));
    ASSERT_TRUE(Becomes(L"log.indexOf('field focus') >= 0", L"true"));
    Evaluate(L"channel.port2.postMessage(0); log = []");
    for (int i = 0; i < 2; ++i) {
        ShowWindow(Frame(), SW_MINIMIZE);
        EXPECT_TRUE(Becomes(L"log.slice().sort().join()", L"blur,field blur,hidden"));
        Evaluate(L"log = []");
        ShowWindow(Frame(), SW_RESTORE);
        EXPECT_TRUE(Becomes(L"log.slice().sort().join()", L"field focus,focus,visible"));
        Evaluate(L"log = []");
    }
}

TEST_F(HostedPage, FillsTheScreenOnRequest) {
    Open(R"(<button id="button">Full screen</button><script>
        button.onclick = function () { document.body.requestFullscreen(); };
        function place() { return [screenX, screenY, innerWidth, innerHeight].join(' '); }</script>)");
    const RECT before = PlaceOf(Frame());
    const LONG_PTR style = GetWindowLongPtrW(Frame(), GWL_STYLE);
    const std::wstring inWindow = Evaluate(L"place()");
    const std::wstring onScreen = Text(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
    const auto request = [&] {
        ClickAt(MiddleOf(L"button"));
        EXPECT_TRUE(Becomes(L"place()", onScreen));
    };
    request();
    PressKeys({VK_ESCAPE});
    EXPECT_TRUE(Becomes(L"place()", inWindow));
    EXPECT_EQ(Evaluate(L"String(document.fullscreenElement)"), L"null");
    const RECT after = PlaceOf(Frame());
    EXPECT_TRUE(EqualRect(&after, &before));
    EXPECT_EQ(GetWindowLongPtrW(Frame(), GWL_STYLE), style);
    // A page that leaves without a word.
    ShowWindow(Frame(), SW_MAXIMIZE);
    PumpUntil([&] { return Evaluate(L"innerWidth") != L"500"; });
    request();
    Evaluate(L"setTimeout(function () { location.href = 'about:blank'; })");
    EXPECT_TRUE(PumpUntil([&] { return GetWindowLongPtrW(Frame(), GWL_STYLE) == (style | WS_MAXIMIZE); }));
}

TEST_F(HostedPage, LocksThePointerInItsWindow) {
    Open(R"(<button id="button">Lock</button><script>
        var moved = 0, largest = 0;
        button.onclick = function () { button.requestPointerLock().catch(function () {}); };
        onmousemove = function (event) {
            moved += event.movementX;
            largest = Math.max(largest, Math.abs(event.movementX));
        };
        function locked() { return document.pointerLockElement === button; }</script>)");
    const auto pointer = [] {
        POINT point = {};
        GetCursorPos(&point);
        return point;
    };
    const POINT before = MiddleOf(L"button");
    const auto lock = [&] {
        // A click may be lost, or the engine may refuse a lock while another one ends.
        for (int i = 0; i < 5 && Evaluate(L"locked()") != L"true"; ++i) {
            ClickAt(before);
            PumpUntil([&] { return Evaluate(L"locked()") == L"true"; }, std::chrono::seconds(3));
        }
        EXPECT_EQ(Evaluate(L"locked()"), L"true");
        PumpUntil([&] { return pointer().x != before.x; });
        Evaluate(L"moved = largest = 0");
    };
    const auto isBack = [&] {
        EXPECT_TRUE(Becomes(L"locked()", L"false"));
        EXPECT_TRUE(PumpUntil([&] { return pointer().x == before.x && pointer().y == before.y; }));
    };
    lock();
    RECT area = {};
    GetWindowRect(PageWindow(), &area);
    INPUT move = MouseInputOf(MOUSEEVENTF_MOVE);
    move.mi.dx = 30;
    for (int i = 0; i < 200 && Evaluate(L"moved > 1500") != L"true"; ++i) {
        Send(move);
        PumpUntil([] { return false; }, std::chrono::milliseconds(10));
        EXPECT_TRUE(PtInRect(&area, pointer()));
    }
    EXPECT_TRUE(Becomes(L"moved > 1500", L"true"));  // the window is 500 wide
    EXPECT_TRUE(Becomes(L"largest < 250", L"true"));
    PressKeys({VK_ESCAPE});
    isBack();
    lock();
    const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 600, 500, 50, 50, nullptr,
                                     nullptr, nullptr, nullptr);
    SetForegroundWindow(other);
    isBack();
    DestroyWindow(other);
}

}  // namespace
}  // namespace tarvik
