#pragma once

#include <string>

#include "page_control/page/browser_dispatch.h"
#include "tarvik/bstr.h"
#include "tarvik/com_object.h"
#include "tarvik/status.h"

namespace tarvik {

// The browser argument of a frame's events: not the control's browser, and with the address of the frame's
// document. Each event has a new one.
class FrameBrowser
    : public ComObject<As<BrowserDispatch, IWebBrowser2, IWebBrowserApp, IWebBrowser, IDispatch>> {
  public:
    explicit FrameBrowser(std::wstring url) : url_(std::move(url)) {}

    STDMETHODIMP get_LocationURL(BSTR* out) override {
        if (!out) return E_POINTER;
        *out = nullptr;
        return Guard([&] { *out = Bstr(url_).Detach(); });
    }

  private:
    const std::wstring url_;
};

}  // namespace tarvik
