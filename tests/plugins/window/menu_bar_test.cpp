#include "tarvik/menu.h"
#include "tests/plugins/window/window_fixture.h"

namespace tarvik {
namespace {

HMENU NativeMenu(IDispatch* menu) {
    return Query<TVK::IMenu>(menu)->GetMenu();
}

class MenuBar : public WindowPluginTest {
  protected:
    MenuBar() { browser_->GetPlugin(L"menu", menus_.GetAddressOf()); }

    ComPtr<IDispatch> MakeMenu(const wchar_t* type) const {
        ComPtr<IDispatch> menu(CallMember(menus_.Get(), L"createMenu", type).value.pdispVal);
        CallMember(menu.Get(), L"appendMenu", OptionObject().Set(L"name", L"a").Set(L"callback", function_));
        return menu;
    }
    void Show(const ComPtr<IDispatch>& menu) const { PutMember(plugin_.Get(), L"menu", menu); }

    ComPtr<IDispatch> menus_;
    const ComPtr<Recorder> function_ = MakeCom<Recorder>();
};

TEST_F(MenuBar, IsReplacedWithoutDestroyingTheWindow) {
    const auto closed = MakeCom<Recorder>();
    PutMember(plugin_.Get(), L"onClosed", closed);
    for (const wchar_t* type : {L"popupMenu", L"trayMenu", L"windowMenu"})
        Show(MakeMenu(type));
    {
        const auto inner = MakeMenu(L"windowMenu"), outer = MakeMenu(L"popupMenu");
        Show(inner);
        CallMember(outer.Get(), L"appendMenu", OptionObject().Set(L"name", L"a").Set(L"subMenu", inner));
    }
    const auto last = MakeMenu(L"popupMenu");
    Show(last);
    EXPECT_TRUE(IsWindow(window_));
    EXPECT_EQ(GetMenu(window_), NativeMenu(last.Get()));
    DestroyWindow(window_);
    EXPECT_EQ(closed->calls.size(), 1u);
    EXPECT_EQ(GetMenuItemCount(NativeMenu(last.Get())), 1) << "a menu outlives its window";
}

TEST_F(MenuBar, StaysInAnotherWindowThatShowsIt) {
    const auto browser = MakeCom<CWebBrowser>();
    const HWND other = browser->CreateHidden(nullptr, (folder_ / L"page.html").c_str());
    ComPtr<IDispatch> plugin;
    browser->GetPlugin(L"window", plugin.GetAddressOf());
    for (const bool closes : {false, true}) {
        auto shared = MakeMenu(L"popupMenu");
        const HMENU native = NativeMenu(shared.Get());
        PutMember(plugin.Get(), L"menu", shared);
        Show(shared);
        shared.Reset();
        closes ? (void)DestroyWindow(window_) : Show(MakeMenu(L"windowMenu"));
        EXPECT_EQ(GetMenu(other), native);
        SendMessageW(other, WM_COMMAND, GetMenuItemID(native, 0), 0);
        PutMember(plugin.Get(), L"menu", MakeMenu(L"windowMenu"));
        EXPECT_TRUE(IsWindow(other));
    }
    EXPECT_EQ(function_->calls.size(), 2u);
    DestroyWindow(other);
}

// Changes that a page makes while a menu is open.
class OpenMenu : public MenuBar {
  protected:
    void SetUp() override {
        MenuBar::SetUp();
        CallMember(plugin_.Get(), L"show", true);
    }
    // Opens a menu, acts, and returns when the system has left its menu loop.
    void During(const std::function<void()>& open, std::function<void()> act) {
        act_ = std::move(act);
        opened_ = this;
        ticks_ = 0;
        PumpOnce();
        const UINT_PTR timer = SetTimer(nullptr, 0, kPeriod, OnTimer);
        open();
        KillTimer(nullptr, timer);
        EXPECT_FALSE(act_) << "no menu opened";
        EXPECT_LT(ticks_, kMaxTicks) << "the menu loop went on";
        EXPECT_FALSE(OpenPopup());
    }

  private:
    static constexpr UINT kPeriod = 20;
    static constexpr int kMaxTicks = kWaitLimit / kPeriod;

    static bool OpenPopup() {
        const HWND popup = FindWindowExW(nullptr, nullptr, L"#32768", nullptr);
        return popup && IsWindowVisible(popup);
    }
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (OpenPopup() && opened_->act_) std::exchange(opened_->act_, nullptr)();
        if (++opened_->ticks_ >= kMaxTicks) EndMenu();
    }

    static inline OpenMenu* opened_ = nullptr;
    std::function<void()> act_;
    int ticks_ = 0;
};

TEST_F(OpenMenu, ClosesWhenItIsReplacedOrItsWindowDestroyed) {
    const auto inner = MakeMenu(L"popupMenu"), next = MakeMenu(L"popupMenu");
    const auto openBar = [&] {
        const auto bar = MakeMenu(L"windowMenu");
        CallMember(bar.Get(), L"appendMenu", OptionObject().Set(L"name", L"b").Set(L"subMenu", inner));
        Show(bar);
        for (const WPARAM key : {VK_RIGHT, VK_DOWN})
            PostMessageW(window_, WM_KEYDOWN, key, 0);
        SendMessageW(window_, WM_SYSCOMMAND, SC_KEYMENU, 0);
    };
    During(openBar, [&] { Show(next); });
    EXPECT_EQ(GetMenu(window_), NativeMenu(next.Get()));
    During(openBar, [&] { DestroyWindow(window_); });
    EXPECT_FALSE(IsWindow(window_));
}

TEST_F(OpenMenu, BecomesTheMenuBar) {
    const auto menu = MakeMenu(L"popupMenu");
    During([&] { TrackPopupMenu(NativeMenu(menu.Get()), TPM_NONOTIFY, 10, 10, 0, window_, nullptr); },
           [&] {
               Show(menu);
               EndMenu();
           });
    ASSERT_TRUE(IsWindow(window_));
    EXPECT_EQ(GetMenu(window_), NativeMenu(menu.Get()));
}

}  // namespace
}  // namespace tarvik
