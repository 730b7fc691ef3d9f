#pragma once

#include <windows.h>

#include "host/web_browser.h"
#include "tests/support/test.h"

namespace tarvik {

// The plug-in `window` of a real browser window.
class WindowPluginTest : public testing::Test {
  protected:
    WindowPluginTest() {
        window_ = browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str());
        browser_->GetPlugin(L"window", plugin_.GetAddressOf());
    }
    ~WindowPluginTest() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        PumpOnce();
    }
    void SetUp() override { ASSERT_TRUE(window_ && plugin_); }

    RECT Place() const {
        RECT rect = {};
        GetWindowRect(window_, &rect);
        return rect;
    }
    bool HasStyle(LONG bits) const { return (GetWindowLongW(window_, GWL_STYLE) & bits) == bits; }

    const TempFolder folder_;
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    HWND window_ = nullptr;
    ComPtr<IDispatch> plugin_;
};

}  // namespace tarvik
