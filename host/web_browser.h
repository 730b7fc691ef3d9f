#pragma once

#include <windows.h>
#include <exdisp.h>

#include "atl/ax_interfaces.h"
#include "atl/event_sink.h"
#include "atl/module.h"
#include "atl/window.h"
#include "host/browser_host_interface.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// A top-level window with one web browser control. The window holds a reference to this object until its last
// message.
class CWebBrowser : public ComObject<As<TVK::ICore>>, public CWindowImpl, public CMessageFilter {
  public:
    // Creates the window, hidden, and opens the page. A null `page` means the page of the first window.
    // Returns null if the page does not exist, or the window or its control cannot be created.
    HWND CreateHidden(HWND parent, const wchar_t* page);

    // TVK::ICore
    STDMETHODIMP CreateBrowserWindow(const wchar_t* url, BOOL inherit, const VARIANT* callback,
                                     const VARIANT* context, IDispatch** out) override;
    STDMETHODIMP_(HWND) GetWindowHandle() override { return Window(); }
    STDMETHODIMP GetPlugin(const wchar_t* name, IDispatch** out) override;
    STDMETHODIMP ResolveUrl(const wchar_t* url, BSTR* out) override;
    STDMETHODIMP CreateScriptObject(const wchar_t* typeName, IDispatch** out) override;

    // CMessageFilter: offers every message of the thread to the control, also those of other windows.
    bool PreTranslateMessage(MSG* message) override;

    // Called by the sink of the control's events.
    void OnEvent(DISPID id, const DISPPARAMS& parameters);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnFinalMessage(HWND) override { Release(); }

  private:
    LRESULT OnCreate(const wchar_t* requested);
    HRESULT OpenPage(const wchar_t* requested);
    void OnDestroy();
    bool MayUnload();
    void OnDpiChange(const RECT& place);
    void ZoomPage();
    HRESULT CreateControl(const std::wstring& page);
    void OnNewWindow(const DISPPARAMS& parameters);

    ComPtr<IWebbrowserHost> host_;
    // Set from the creation of the site to WM_DESTROY.
    ComPtr<IAxWinHostWindow> hostWindow_;
    ComPtr<EventSink<CWebBrowser>> sink_;
};

}  // namespace tarvik
