// Browser windows with the system's own control.

#include "host/web_browser.h"

#include <exdispid.h>

#include "atl/ax_window.h"
#include "tests/support/control_class.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class BrowserWindow : public testing::Test {
  protected:
    BrowserWindow() { appModule.AddMessageLoop(&loop_); }
    ~BrowserWindow() override { appModule.RemoveMessageLoop(); }

    static ComPtr<IWebBrowser2> ControlOf(HWND window) {
        return Query<IWebBrowser2>(AtlAxGetControl(window).Get());
    }

    CMessageLoop loop_;
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"page.html", "<html></html>");
};

TEST_F(BrowserWindow, HoldsAControlThatFillsIt) {
    const ObjectCheck nothingLeft;
    const auto browser = MakeCom<CWebBrowser>();
    const HWND window = browser->CreateHidden(nullptr, page_.c_str());
    ASSERT_TRUE(window);
    EXPECT_FALSE(IsWindowVisible(window));
    ASSERT_TRUE(ControlOf(window));
    EXPECT_TRUE(Query<IWebbrowserHost>(AtlAxGetHost(window).Get()));

    SetWindowPos(window, nullptr, 0, 0, 431, 287, SWP_NOMOVE | SWP_NOZORDER);
    RECT client = {}, control = {};
    GetClientRect(window, &client);
    const HWND child = GetWindow(window, GW_CHILD);
    ASSERT_TRUE(child);
    GetClientRect(child, &control);
    EXPECT_EQ(control.right, client.right);
    EXPECT_EQ(control.bottom, client.bottom);

    DestroyWindow(window);
    PumpOnce();
    EXPECT_FALSE(browser->GetWindowHandle());
}

TEST_F(BrowserWindow, IsNotMadeWithoutItsPageOrAControl) {
    const ObjectCheck nothingLeft;
    EXPECT_FALSE(MakeCom<CWebBrowser>()->CreateHidden(nullptr, (folder_ / L"none.html").c_str()));
    const ControlClass none([]() -> ComPtr<IUnknown> { return nullptr; });
    EXPECT_FALSE(MakeCom<CWebBrowser>()->CreateHidden(nullptr, page_.c_str()));
}

// Closed by its own page, as far as this control goes: by what runs while it is made.
TEST_F(BrowserWindow, MayCloseWhileItIsMade) {
    const long before = liveComObjects;
    {
        const auto browser = MakeCom<CWebBrowser>();
        const ControlClass* controls = nullptr;
        const ControlClass closing([&] {
            DestroyWindow(browser->GetWindowHandle());
            return controls->SystemControl();
        });
        controls = &closing;
        EXPECT_FALSE(browser->CreateHidden(nullptr, page_.c_str()));
        ComPtr<IDispatch> plugin;
        EXPECT_THAT(browser->GetPlugin(L"console", plugin.GetAddressOf()), HasStatus(E_UNEXPECTED));
    }
    EXPECT_EQ(liveComObjects, before);
    // No filter of a window that is gone is asked.
    PostMessageW(nullptr, WM_APP, 0, 0);
    PostQuitMessage(0);
    loop_.Run();
}

// Addresses that the page asks new windows for are not opened by the control.
TEST_F(BrowserWindow, CancelsTheControlsNewWindows) {
    const auto browser = MakeCom<CWebBrowser>();
    VARIANT_BOOL cancel = VARIANT_FALSE;
    VARIANT arguments[5] = {};
    arguments[3].vt = VT_BOOL | VT_BYREF;
    arguments[3].pboolVal = &cancel;
    DISPPARAMS parameters = {arguments, nullptr, 5, 0};
    browser->OnEvent(DISPID_NEWWINDOW3, parameters);
    EXPECT_EQ(cancel, VARIANT_TRUE);
    parameters.cArgs = 0;
    browser->OnEvent(DISPID_NEWWINDOW3, parameters);
}

}  // namespace
}  // namespace tarvik
