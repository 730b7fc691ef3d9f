#include <windows.h>

#include <gtest/gtest.h>

#include "host/web_browser.h"
#include "tests/support/members.h"
#include "tests/support/recorder.h"
#include "tests/support/status_text.h"
#include "tests/support/temp_folder.h"
#include "tests/support/waiting.h"

namespace tarvik {
namespace {

// The plug-in of a real browser window.
class WindowPlugin : public testing::Test {
  protected:
    WindowPlugin() {
        window_ = browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str());
        browser_->GetPlugin(L"window", plugin_.GetAddressOf());
    }
    ~WindowPlugin() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        PumpOnce();
    }
    void SetUp() override { ASSERT_TRUE(window_ && plugin_); }

    const TempFolder folder_;
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    HWND window_ = nullptr;
    ComPtr<IDispatch> plugin_;
};

TEST_F(WindowPlugin, ShowsHidesAndCloses) {
    IDispatch* const window = plugin_.Get();
    EXPECT_EQ(ValueText(CallMember(window, L"isVisible").value), "BOOL false");
    EXPECT_EQ(ValueText(CallMember(window, L"show", true).value), "BOOL true");
    EXPECT_TRUE(IsWindowVisible(window_));
    EXPECT_EQ(ValueText(CallMember(window, L"isVisible").value), "BOOL true");
    CallMember(window, L"show", false);
    EXPECT_FALSE(IsWindowVisible(window_));
    EXPECT_EQ(ValueText(CallMember(window, L"close").value), "BOOL true");
    EXPECT_TRUE(IsWindow(window_)) << "closing is posted";
    EXPECT_TRUE(PumpUntil([this] { return !IsWindow(window_); }));
}

TEST_F(WindowPlugin, ChangesOneSideAndKeepsTheOther) {
    SetWindowPos(window_, nullptr, 40, 50, 400, 300, SWP_NOZORDER);
    EXPECT_EQ(ValueText(PutMember(plugin_.Get(), L"width", 520).value), "BOOL true");
    EXPECT_EQ(ValueText(PutMember(plugin_.Get(), L"height", 333).value), "BOOL true");
    EXPECT_THAT(PutMember(plugin_.Get(), L"width", 0).status, HasStatus(E_INVALIDARG));
    EXPECT_THAT(PutMember(plugin_.Get(), L"height", 0).status, HasStatus(E_INVALIDARG));
    RECT rect = {};
    GetWindowRect(window_, &rect);
    EXPECT_EQ(rect.left, 40);
    EXPECT_EQ(rect.top, 50);
    EXPECT_EQ(rect.right, 560);
    EXPECT_EQ(rect.bottom, 383);
    EXPECT_EQ(GetMember(plugin_.Get(), L"width").value.lVal, 520);
    EXPECT_EQ(GetMember(plugin_.Get(), L"height").value.lVal, 333);
}

TEST_F(WindowPlugin, CutsALongTitle) {
    const std::wstring title(1200, L't');
    PutMember(plugin_.Get(), L"title", title.c_str());
    EXPECT_EQ(SysStringLen(GetMember(plugin_.Get(), L"title").value.bstrVal), 999u);
}

}  // namespace
}  // namespace tarvik
