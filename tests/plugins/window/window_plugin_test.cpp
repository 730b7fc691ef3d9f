#include "plugins/window/window_plugin.h"

#include "tests/plugins/window/window_fixture.h"

namespace tarvik {
namespace {

using Sides = std::array<LONG, 4>;

class WindowPlugin : public WindowPluginTest {
  protected:
    Sides Place() const {
        RECT rect = {};
        GetWindowRect(window_, &rect);
        return {rect.left, rect.top, rect.right, rect.bottom};
    }
    bool HasStyle(LONG bits) const { return (GetWindowLongW(window_, GWL_STYLE) & bits) == bits; }
};

TEST_F(WindowPlugin, ChangesOneSideOnly) {
    IDispatch* const window = plugin_.Get();
    EXPECT_EQ(CallText(window, L"setWindowPos", 40, L"50", 400.4, 300), "BOOL true");
    EXPECT_EQ(Place(), (Sides{40, 50, 440, 350}));
    for (const auto& [name, value] : {std::pair(L"width", 520), std::pair(L"height", 333),
                                      std::pair(L"left", 0), std::pair(L"top", -7)}) {
        EXPECT_EQ(PutText(window, name, value), "BOOL true") << name;
        EXPECT_EQ(GetMember(window, name).value.lVal, value) << name;
    }
    for (const auto& [width, height] : {std::pair(0, 100), std::pair(100, 0)})
        EXPECT_EQ(CallText(window, L"setWindowPos", 10, 10, width, height), StatusText(E_INVALIDARG));
    EXPECT_EQ(Place(), (Sides{0, -7, 520, 326}));
}

TEST_F(WindowPlugin, CentresInTheWorkArea) {
    RECT area = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_EQ(GetMember(plugin_.Get(), L"workAreaWidth").value.lVal, area.right - area.left);
    EXPECT_EQ(GetMember(plugin_.Get(), L"workAreaHeight").value.lVal, area.bottom - area.top);
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
    const auto centre = [&](int ownWidth, int ownHeight) {
        CallMember(plugin_.Get(), L"setWindowPos", 1, 1, ownWidth, ownHeight);
        EXPECT_EQ(CallText(plugin_.Get(), L"centerWindow"), "BOOL true");
        return Place();
    };
    EXPECT_EQ(centre(401, 300),
              (Sides{width / 2 - 200, height / 2 - 150, width / 2 + 201, height / 2 + 150}));
    const Sides large = centre(width + 100, height + 100);
    EXPECT_EQ(large[0], area.left) << "too large: aligned with the work area";
    EXPECT_EQ(large[1], area.top);
}

TEST_F(WindowPlugin, TogglesStyleBits) {
    const std::pair<const wchar_t*, LONG> boxes[] = {
        {L"minimizeBox", WS_MINIMIZEBOX}, {L"maximizeBox", WS_MAXIMIZEBOX}, {L"sysMenu", WS_SYSMENU}};
    for (const auto& [name, bits] : boxes) {
        EXPECT_TRUE(HasStyle(bits)) << name;
        EXPECT_EQ(PutText(plugin_.Get(), name, false), "BOOL true") << name;
        EXPECT_FALSE(HasStyle(bits)) << name;
        PutMember(plugin_.Get(), name, true);
        EXPECT_TRUE(HasStyle(bits)) << name;
    }
    PutMember(plugin_.Get(), L"resize", false);
    EXPECT_FALSE(HasStyle(WS_THICKFRAME));
    for (const bool topMost : {true, false}) {
        PutMember(plugin_.Get(), L"topMost", topMost);
        EXPECT_EQ((GetWindowLongW(window_, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0, topMost);
    }
}

TEST_F(WindowPlugin, LimitsItsTrackingSize) {
    const auto limits = [this] {
        MINMAXINFO info = {};
        SendMessageW(window_, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return Sides{info.ptMinTrackSize.x, info.ptMinTrackSize.y, info.ptMaxTrackSize.x,
                     info.ptMaxTrackSize.y};
    };
    const wchar_t* const names[] = {L"minWidth", L"minHeight", L"maxWidth", L"maxHeight"};
    for (int i = 0; i < 4; ++i)
        PutMember(plugin_.Get(), names[i], 500 - 100 * i);
    EXPECT_EQ(limits(), (Sides{500, 400, 300, 200}));
    for (const wchar_t* name : names) {
        EXPECT_THAT(PutMember(plugin_.Get(), name, 0).status, HasStatus(E_INVALIDARG)) << name;
        EXPECT_THAT(PutMember(plugin_.Get(), name, -1).status, HasStatus(S_OK)) << name;
    }
    EXPECT_EQ(limits(), (Sides{0, 0, 0, 0})) << "-1 is no limit";
}

// A function for each event of the window.
class WindowEvents : public WindowPluginTest {
  protected:
    static constexpr const wchar_t* kNames[] = {L"onClose",  L"onMinimize", L"onMaximize",   L"onRestore",
                                                L"onClosed", L"onActivate", L"onInactivate", L"onShutdown"};

    void AnswerAll(const Variant& answer) {
        for (const wchar_t* name : kNames) {
            const auto onCall = [this, name, &answer](const Recorder::Record& call) {
                EXPECT_TRUE(call.arguments.empty());
                called_ += std::wstring(name) + L' ';
                return Variant::Copy(answer);
            };
            PutMember(plugin_.Get(), name, MakeCom<Recorder>(onCall));
        }
    }
    // Sends a message, checks its result and returns the names of the functions called.
    std::wstring After(UINT message, WPARAM wParam, LRESULT expected = 0) {
        called_.clear();
        EXPECT_EQ(SendMessageW(window_, message, wParam, 0), expected);
        return std::move(called_);
    }

    std::wstring called_;
};

TEST_F(WindowEvents, AreRefusedOnlyByFalse) {
    CallMember(plugin_.Get(), L"show", true);
    const Variant refusal = Variant::Bool(false);
    AnswerAll(refusal);
    EXPECT_EQ(After(WM_SYSCOMMAND, SC_MINIMIZE), L"onMinimize ");
    EXPECT_FALSE(IsIconic(window_));
    EXPECT_EQ(After(WM_SYSCOMMAND, SC_MAXIMIZE), L"onMaximize ");
    EXPECT_FALSE(IsZoomed(window_));
    EXPECT_EQ(After(WM_SYSCOMMAND, SC_CLOSE), L"onClose ");
    EXPECT_TRUE(IsWindow(window_));
    EXPECT_EQ(After(WM_QUERYENDSESSION, 0, TRUE), L"onShutdown ") << "cannot be refused";
    EXPECT_EQ(After(WM_NCACTIVATE, FALSE, TRUE), L"onInactivate ") << "cannot be refused";
    EXPECT_EQ(After(WM_NCACTIVATE, TRUE, TRUE), L"onActivate ");
    const Variant answers[] = {Variant(), Variant::I4(0), Variant::Text(L"")};
    for (const Variant& answer : answers) {
        AnswerAll(answer);
        After(WM_SYSCOMMAND, SC_MAXIMIZE);
        EXPECT_TRUE(IsZoomed(window_));
        EXPECT_EQ(After(WM_SYSCOMMAND, SC_RESTORE), L"onRestore ");
        EXPECT_FALSE(IsZoomed(window_));
    }
    AnswerAll(refusal);
    After(WM_SYSCOMMAND, SC_MAXIMIZE | HTCAPTION);
    EXPECT_TRUE(IsZoomed(window_)) << "a double click on the caption is another command";
    EXPECT_EQ(After(WM_CLOSE, 0), L"onInactivate onClosed ") << "WM_CLOSE cannot be refused";
    EXPECT_FALSE(IsWindow(window_));
}

}  // namespace
}  // namespace tarvik
