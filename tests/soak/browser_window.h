#pragma once

#include <string>

#include "host/web_browser.h"
#include "tarvik/com_ptr.h"
#include "tests/support/waiting.h"

namespace tarvik {

// A hidden browser window with a page. The destructor closes it.
class BrowserWindow {
  public:
    explicit BrowserWindow(const std::wstring& page)
        : browser_(MakeCom<CWebBrowser>()), window_(browser_->CreateHidden(nullptr, page.c_str())) {}
    ~BrowserWindow() {
        if (IsOpen()) DestroyWindow(window_);
        PumpOnce();
    }
    BrowserWindow(const BrowserWindow&) = delete;
    BrowserWindow& operator=(const BrowserWindow&) = delete;

    bool IsOpen() const { return browser_->GetWindowHandle() != nullptr; }
    HWND Handle() const { return window_; }
    CWebBrowser* operator->() const { return browser_.Get(); }

  private:
    const ComPtr<CWebBrowser> browser_;
    const HWND window_;
};

}  // namespace tarvik
