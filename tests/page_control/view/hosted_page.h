#pragma once

#include <string_view>

#include "atl/module.h"
#include "host/web_browser.h"
#include "page_control/page/register.h"
#include "tests/support/screen.h"
#include "tests/support/test.h"

namespace tarvik {

// A page in a browser window on the desktop, driven by real input, and checked by the pixels of the window
// and the values of the page.
class HostedPage : public testing::Test {
  protected:
    HostedPage();
    ~HostedPage() override;

    // Opens a document with this content in a window that covers 500 x 400 pixels of the screen at (60, 50),
    // and waits until it is painted.
    void Open(const std::string& html);

    // The value of an expression, as text.
    std::wstring Evaluate(const std::wstring& expression) const;
    // Waits until an expression has this value; the failure names the last one.
    testing::AssertionResult Becomes(const std::wstring& expression, const std::wstring& expected) const;

    // The middle of an element, on the screen.
    POINT MiddleOf(const wchar_t* id) const;
    POINT OnScreen(POINT inPage) const;
    COLORREF PixelAt(POINT screen) const;
    testing::AssertionResult PixelBecomes(POINT screen, COLORREF colour) const;

    // Uses the keys of the layout where it has them.
    void Type(std::wstring_view text) const;

    HWND Frame() const { return frame_; }
    HWND PageWindow() const { return page_; }

  private:
    ComPtr<IDispatch> Script() const;

    const TempFolder folder_;
    const PageControlClass control_;
    CMessageLoop loop_;
    ComPtr<CWebBrowser> browser_;
    HWND frame_ = nullptr;
    HWND page_ = nullptr;
};

}  // namespace tarvik
