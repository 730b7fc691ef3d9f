#include "plugins/mouse/mouse_plugin.h"

#include "atl/window.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

// A window that notes the buttons pressed over it, where they are, and what the plug-in says of them then.
class Pad : public CWindowImpl {
  public:
    explicit Pad(IDispatch* mouse) : mouse_(mouse) { SubclassWindow(window_.Get()); }

    struct Press {
        UINT message;
        POINT screen;
        std::string down;  // which of the first three buttons
        DWORD time;
        bool operator==(const Press&) const = default;
    };
    std::vector<Press> presses;

  private:
    bool ProcessWindowMessage(UINT message, WPARAM, LPARAM lParam, LRESULT& result) override {
        if (message <= WM_MOUSEMOVE || message > WM_MBUTTONDBLCLK) return false;
        Press press = {message,
                       {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))},
                       {},
                       static_cast<DWORD>(GetMessageTime())};
        ClientToScreen(Window(), &press.screen);
        for (int button = 0; button < 3; ++button) {
            const Outgoing out = CallMember(mouse_, L"isBtnDown", button);
            press.down += out.value.boolVal == VARIANT_TRUE ? '1' : '0';
        }
        presses.push_back(press);
        result = 0;
        return true;
    }

    IDispatch* mouse_;
    UniqueWindow window_{CreateWindowExW(WS_EX_TOPMOST, L"BUTTON", nullptr, WS_POPUP | WS_VISIBLE, 200, 150,
                                         300, 200, nullptr, nullptr, nullptr, nullptr)};
};

class MousePlugin : public testing::Test {
  protected:
    std::string Place() {
        POINT point = {};
        GetCursorPos(&point);
        EXPECT_EQ(GetMember(plugin_.Get(), L"x").value.lVal, point.x);
        EXPECT_EQ(GetMember(plugin_.Get(), L"y").value.lVal, point.y);
        return std::to_string(point.x) + ", " + std::to_string(point.y);
    }

    const ObjectCheck nothingLeft_;
    const ComPtr<CMousePlugin> plugin_ = MakeCom<CMousePlugin>();
};

TEST_F(MousePlugin, MovesThePointerInOneDirection) {
    SetCursorPos(50, 60);
    EXPECT_EQ(Place(), "50, 60");
    EXPECT_EQ(ResultText(PutMember(plugin_.Get(), L"x", 250)), "BOOL true");
    EXPECT_EQ(Place(), "250, 60");
    EXPECT_EQ(ResultText(PutMember(plugin_.Get(), L"y", L"170.2")), "BOOL true");
    EXPECT_EQ(Place(), "250, 170");
}

TEST_F(MousePlugin, ClicksWhereThePointerIs) {
    Pad pad(plugin_.Get());
    PumpOnce();
    PutMember(plugin_.Get(), L"x", 250);
    PutMember(plugin_.Get(), L"y", 170);
    const auto clicks = [&](UINT down, UINT up, const char* held, auto... arguments) {
        pad.presses.clear();
        EXPECT_EQ(ResultText(CallMember(plugin_.Get(), L"click", arguments...)), "BOOL true");
        ASSERT_TRUE(PumpUntil([&] { return pad.presses.size() == 2; }));
        EXPECT_GE(pad.presses[1].time - pad.presses[0].time, 40u) << "it is held";
        EXPECT_EQ(pad.presses[0].message, down);
        EXPECT_EQ(pad.presses[0].down, held);
        EXPECT_EQ(pad.presses[1].message, up);
        EXPECT_EQ(pad.presses[1].down, "000");
        for (const auto& press : pad.presses)
            EXPECT_TRUE(press.screen.x == 250 && press.screen.y == 170);
    };
    clicks(WM_LBUTTONDOWN, WM_LBUTTONUP, "100");
    clicks(WM_RBUTTONDOWN, WM_RBUTTONUP, "010", 1);
    clicks(WM_MBUTTONDOWN, WM_MBUTTONUP, "001", 2);
    clicks(WM_RBUTTONDOWN, WM_RBUTTONUP, "010", 1, 10, L"10");
    clicks(WM_LBUTTONDOWN, WM_LBUTTONUP, "100", 7, 10, 10);
    EXPECT_EQ(Place(), "250, 170");
}

TEST_F(MousePlugin, RefusesWrongArguments) {
    for (const wchar_t* name : {L"isBtnDown", L"click"}) {
        Argument wrong[] = {L"1", 1.5, nullptr, true};
        for (Argument& button : wrong)
            EXPECT_THAT(CallMember(plugin_.Get(), name, std::move(button)).status, HasStatus(E_INVALIDARG));
        EXPECT_THAT(CallMember(plugin_.Get(), name, L"1", 1).status, HasStatus(E_NOTIMPL));
        EXPECT_THAT(CallMember(plugin_.Get(), name, 0, 1, 1, 1).status, HasStatus(E_NOTIMPL));
    }
    EXPECT_THAT(InvokeMember(plugin_.Get(), L"x", DISPATCH_PROPERTYPUT, {}).status, HasStatus(E_NOTIMPL));
    const std::pair<const wchar_t*, const char*> buttons[] = {
        {L"LBTN", "I4 0"}, {L"RBTN", "I4 1"}, {L"MBTN", "I4 2"}};
    for (const auto& [name, value] : buttons) {
        EXPECT_EQ(ResultText(GetMember(plugin_.Get(), name)), value);
        EXPECT_THAT(PutMember(plugin_.Get(), name, 1).status, HasStatus(E_NOTIMPL));
    }
}

}  // namespace
}  // namespace tarvik
