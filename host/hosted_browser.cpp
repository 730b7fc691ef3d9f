#include "host/hosted_browser.h"

#include "atl/ax_window.h"

namespace tarvik {

ComPtr<IWebBrowser2> BrowserIn(HWND window) {
    return Query<IWebBrowser2>(AtlAxGetControl(window).Get());
}

ComPtr<IDispatch> DocumentIn(HWND window) {
    ComPtr<IDispatch> document;
    if (const auto browser = BrowserIn(window)) browser->get_Document(document.GetAddressOf());
    return document;
}

}  // namespace tarvik
