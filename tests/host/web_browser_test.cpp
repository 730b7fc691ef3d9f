// Browser windows with the system's own control.

#include "host/web_browser.h"

#include <exdispid.h>

#include "tests/support/control_class.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

class BrowserWindow : public testing::Test {
  protected:
    BrowserWindow() { appModule.AddMessageLoop(&loop_); }
    ~BrowserWindow() override { appModule.RemoveMessageLoop(); }

    CMessageLoop loop_;
    const TempFolder folder_;
    const std::wstring page_ = folder_.Write(L"page.html", "<html></html>");
};

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
}

}  // namespace
}  // namespace tarvik
