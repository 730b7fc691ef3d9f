#pragma once

#include <windows.h>

#include "host/web_browser.h"
#include "tests/support/test.h"

namespace tarvik {

// A plug-in in a browser window.
class PluginOfWindow : public testing::Test {
  protected:
    explicit PluginOfWindow(const wchar_t* name) {
        window_ = browser_->CreateHidden(nullptr, folder_.Write(L"page.html", "<html></html>").c_str());
        browser_->GetPlugin(name, plugin_.GetAddressOf());
    }
    ~PluginOfWindow() override {
        if (IsWindow(window_)) DestroyWindow(window_);
        PumpOnce();
    }
    void SetUp() override { ASSERT_TRUE(window_ && plugin_); }

    const TempFolder folder_;
    const ComPtr<CWebBrowser> browser_ = MakeCom<CWebBrowser>();
    HWND window_ = nullptr;
    ComPtr<IDispatch> plugin_;
};

}  // namespace tarvik
