#pragma once

#include <windows.h>
#include <docobj.h>
#include <exdisp.h>
#include <mshtmhst.h>
#include <ocidl.h>
#include <oleidl.h>

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "base/running.h"
#include "page_control/page/browser_dispatch.h"
#include "page_control/page/connection_point.h"
#include "page_control/page/html_objects.h"
#include "page_control/page/page.h"
#include "page_control/page/page_windows.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// A web browser control over a browser engine of the Chromium family. To its container it is equivalent to
// the system's control: it implements the published interfaces, calls the site through them, and fires
// DWebBrowserEvents2.
class PageControl
    : public ComObject<As<BrowserDispatch, IWebBrowser2, IWebBrowserApp, IWebBrowser, IDispatch>, IOleObject,
                       As<IOleInPlaceObject, IOleWindow, IOleInPlaceObject>, IOleInPlaceActiveObject,
                       IConnectionPointContainer, As<IPersistStreamInit, IPersist, IPersistStreamInit>,
                       As<RunningReport, IRunnableObject>>,
      public PageEvents,
      public PageWindows::Handler {
  public:
    explicit PageControl(std::shared_ptr<SharedEngine> engine);
    ~PageControl() override;

    // IWebBrowser2
    STDMETHODIMP Navigate(BSTR url, VARIANT* flags, VARIANT* frame, VARIANT* post, VARIANT* headers) override;
    STDMETHODIMP Navigate2(VARIANT* url, VARIANT* flags, VARIANT* frame, VARIANT* post,
                           VARIANT* headers) override;
    STDMETHODIMP GoBack() override;
    STDMETHODIMP GoForward() override;
    STDMETHODIMP Refresh() override;
    STDMETHODIMP Refresh2(VARIANT*) override { return Refresh(); }
    STDMETHODIMP Stop() override;
    STDMETHODIMP get_Application(IDispatch** out) override;
    STDMETHODIMP get_Document(IDispatch** out) override;
    STDMETHODIMP get_LocationName(BSTR* out) override;
    STDMETHODIMP get_LocationURL(BSTR* out) override;
    STDMETHODIMP get_Busy(VARIANT_BOOL* out) override;
    STDMETHODIMP get_ReadyState(READYSTATE* out) override;
    STDMETHODIMP get_HWND(SHANDLE_PTR* out) override;
    STDMETHODIMP get_RegisterAsBrowser(VARIANT_BOOL* out) override;
    STDMETHODIMP put_RegisterAsBrowser(VARIANT_BOOL value) override;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override { return CopyTo(site_, site); }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                        const RECT* position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* id) override { return GetClassID(id); }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL* extent) override;
    STDMETHODIMP GetExtent(DWORD, SIZEL* extent) override;
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP Unadvise(DWORD) override { return OLE_E_NOCONNECTION; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleInPlaceObject
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(const RECT* position, const RECT* clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(MSG* message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID events, IConnectionPoint** out) override;

    // IPersistStreamInit. There is no state to save.
    STDMETHODIMP GetClassID(CLSID* id) override;
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) override { return E_NOTIMPL; }
    STDMETHODIMP Save(IStream*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() override { return S_OK; }

    // IRunnableObject: whether the page can run script.
    STDMETHODIMP_(BOOL) IsRunning() override;

    // PageEvents
    bool OnBeforeNavigate(const std::wstring& url, bool isTop) override;
    void OnNavigateComplete(const std::wstring& url, bool isTop) override;
    void OnDocumentComplete(const std::wstring& url, bool isTop) override;
    void OnNewWindow(const std::wstring& url) override;
    void OnWindowClosing() override;
    void OnScriptError(const ScriptError& error) override;
    void OnContextMenu(POINT screen, IDispatch* element) override;
    void OnMouseDown() override;
    void OnEndProgram() override;
    ComPtr<IDispatch> GetExternal() override;

    // PageWindows::Handler
    bool HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

  private:
    HRESULT Activate(HWND parent, const RECT* position);
    void MakePage(HWND parent, const RECT* position);
    void Show(bool visible);
    void ActivateUi();
    Variant BrowserOf(bool isTop, const std::wstring& url);
    void RegisterDropTarget();
    bool AllowsScript(const std::wstring& url);
    void ReportErrors();
    ComPtr<HtmlElement> ElementFor(IDispatch* script);

    const std::shared_ptr<SharedEngine> engine_;
    ComPtr<ConnectionPoint> events_;
    ComPtr<ConnectionPoint> mouse_;
    ComPtr<IOleClientSite> site_;
    ComPtr<IOleInPlaceSite> inPlaceSite_;
    ComPtr<IOleInPlaceFrame> frame_;
    std::optional<PageWindows> windows_;
    std::shared_ptr<Page> page_;
    ComPtr<HtmlDocument> document_;
    std::wstring pending_;  // requested before the window exists
    std::deque<ScriptError> errors_;
    bool reporting_ = false;
    bool registerAsBrowser_ = false;
    bool textIsSelectable_ = true;
    bool uiActive_ = false;
    SIZEL extent_ = {};
};

}  // namespace tarvik
