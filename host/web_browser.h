#pragma once

#include <windows.h>
#include <exdisp.h>

#include "atl/ax_interfaces.h"
#include "atl/event_sink.h"
#include "atl/module.h"
#include "atl/window.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"
#include "host/browser_host_interface.h"

namespace tarvik {

// One top-level window with one web browser control. Its window keeps it alive.
class CWebBrowser : public ComObject<As<TVK::ICore>>, public CWindowImpl, public CMessageFilter {
  public:
    // Makes the window, hidden, and opens the page; null means the page of the first window. Null is answered
    // if there is no such page, or no window can be made.
    HWND CreateHidden(HWND parent, const wchar_t* page);

    // TVK::ICore
    STDMETHODIMP CreateBrowserWindow(const wchar_t* url, BOOL inherit, const VARIANT* callback,
                                     const VARIANT* context, IDispatch** out) override;
    STDMETHODIMP_(HWND) GetWindowHandle() override { return Window(); }
    STDMETHODIMP GetPlugin(const wchar_t* name, IDispatch** out) override;
    STDMETHODIMP ResolveUrl(const wchar_t* url, BSTR* out) override;
    STDMETHODIMP CreateScriptObject(const wchar_t* typeName, IDispatch** out) override;

    // CMessageFilter: the control may take any message of the thread, also those of other windows.
    bool PreTranslateMessage(MSG* message) override;

    // The control's events, from its sink.
    void OnEvent(DISPID id, const DISPPARAMS& parameters);

  protected:
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnFinalMessage(HWND) override { Release(); }

  private:
    LRESULT OnCreate(const wchar_t* asked);
    HRESULT OpenPage(const wchar_t* asked);
    void OnDestroy();
    HRESULT CreateControl(const std::wstring& page);
    void OnNewWindow(const DISPPARAMS& parameters);

    ComPtr<IWebbrowserHost> host_;
    // Not null from the control's creation to WM_DESTROY: the mark that there is a control to let go of.
    ComPtr<IAxWinHostWindow> hostWindow_;
    ComPtr<EventSink<CWebBrowser>> sink_;
};

}  // namespace tarvik
