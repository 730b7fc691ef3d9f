#include "control/view/mouse_input.h"

#include "control/view/click_counter.h"
#include "tests/control/view/input_fixture.h"

namespace tarvik {
namespace {

LPARAM At(int x, int y) {
    return MAKELPARAM(x, y);
}

TEST(ClickCounter, GoesByButtonTimeAndPlace) {
    const DWORD soon = GetDoubleClickTime() / 2;
    const DWORD late = GetDoubleClickTime() + 1;
    const int away = GetSystemMetrics(SM_CXDOUBLECLK) / 2 + 1;
    struct {
        const char* what;
        int button;
        POINT point;
        DWORD wait;
        int count;
    } const kPresses[] = {
        {"the first", 1, {10, 10}, 0, 1},
        {"in time", 1, {11, 9}, soon, 2},
        {"a third", 1, {11, 9}, soon, 3},
        {"too late", 1, {11, 9}, late, 1},
        {"too far", 1, {11 + away, 9}, soon, 1},
        {"another button", 2, {11 + away, 9}, soon, 1},
        {"the clock starts anew", 2, {11, 9}, 0, 1},
    };
    ClickCounter clicks;
    DWORD time = 0xFFFFFF00;  // it does so every 49 days
    for (const auto& press : kPresses) {
        time += press.wait;
        EXPECT_EQ(clicks.Press(press.button, press.point, time), press.count) << press.what;
        EXPECT_EQ(clicks.Last(), press.count);
    }
}

class MouseMessages : public QueuedInput {
  protected:
    Json Send(UINT message, WPARAM wParam, LPARAM lParam) {
        EXPECT_TRUE(mouse.HandleMessage(message, wParam, lParam));
        return Sent();
    }

    const UniqueWindow window{CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 40, 30, 200, 100, nullptr, nullptr,
                                              GetModuleHandleW(nullptr), nullptr)};
    MouseInput mouse{window.Get(), queue};
};

TEST_F(MouseMessages, NameTheirButtons) {
    struct {
        UINT down;
        WPARAM which;
        const char* name;
        int bit;
    } const kButtons[] = {
        {WM_LBUTTONDOWN, 0, "left", 1},
        {WM_RBUTTONDOWN, 0, "right", 2},
        {WM_MBUTTONDOWN, 0, "middle", 4},
        {WM_XBUTTONDOWN, MAKEWPARAM(0, XBUTTON1), "back", 8},
        {WM_XBUTTONDOWN, MAKEWPARAM(0, XBUTTON2), "forward", 16},
    };
    for (const auto& button : kButtons) {
        SCOPED_TRACE(button.name);
        const UINT up = button.down + 1, second = button.down + 2;
        for (const UINT press : {button.down, second}) {
            const Json pressed = Send(press, button.which, At(7, 9));
            EXPECT_EQ(pressed["type"], "mousePressed");
            EXPECT_EQ(pressed["button"], button.name);
            EXPECT_EQ(pressed["buttons"], button.bit);
            EXPECT_EQ(pressed["x"], 7);
            EXPECT_EQ(pressed["y"], 9);
            const Json released = Send(up, button.which, At(8, 9));
            EXPECT_EQ(released["type"], "mouseReleased");
            EXPECT_EQ(released["button"], button.name);
            EXPECT_EQ(released["buttons"], 0);
            EXPECT_EQ(released["clickCount"], pressed["clickCount"]);
        }
    }
}

TEST_F(MouseMessages, KeepThePointerWhileAButtonIsHeld) {
    Send(WM_LBUTTONDOWN, 0, At(5, 5));
    Send(WM_RBUTTONDOWN, 0, At(5, 5));
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, At(-20, 300))["button"], "left");
    EXPECT_EQ(mouse.LastPoint().x, -20);
    Send(WM_LBUTTONUP, 0, At(-20, 300));
    EXPECT_EQ(GetCapture(), window.Get());
    EXPECT_EQ(Send(WM_MOUSELEAVE, 0, 0), nullptr);
    EXPECT_EQ(Send(WM_MOUSEMOVE, 0, At(-21, 300))["button"], "right");
    Send(WM_RBUTTONUP, 0, At(-21, 300));
    EXPECT_FALSE(GetCapture());
    EXPECT_EQ(Send(WM_MOUSELEAVE, 0, 0).value("x", 0), -1);
}

}  // namespace
}  // namespace tarvik
