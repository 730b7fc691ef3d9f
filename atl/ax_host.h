#pragma once

#include <windows.h>
#include <mshtmhst.h>
#include <ocidl.h>
#include <oleidl.h>
#include <servprov.h>

#include "atl/ax_interfaces.h"
#include "atl/in_place_frame.h"
#include "atl/window.h"
#include "tarvik/com_object.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// The site of one OLE control in a window. Creates the control, activates it in place, resizes it with the
// window, and releases it at WM_DESTROY, after the window has handled that message. The window holds a
// reference to the site until its last message. Derived sites override methods, and add interfaces by
// overriding FindInterface.
class CAxHostWindow
    : public ComObject<As<IAxWinHostWindowLic, IAxWinHostWindow, IAxWinHostWindowLic>, IOleClientSite,
                       As<IOleInPlaceSiteEx, IOleWindow, IOleInPlaceSite, IOleInPlaceSiteEx>, IOleControlSite,
                       As<IOleContainer, IParseDisplayName, IOleContainer>, IObjectWithSite, IServiceProvider,
                       IDocHostUIHandler, IDispatch>,
      public CWindowImpl {
  public:
    // IAxWinHostWindow: only CreateControlLicEx creates a control.
    STDMETHODIMP CreateControl(LPCOLESTR, HWND, IStream*) override { return E_NOTIMPL; }
    STDMETHODIMP CreateControlEx(LPCOLESTR, HWND, IStream*, IUnknown**, REFIID, IUnknown*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP AttachControl(IUnknown*, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP QueryControl(REFIID iid, void** out) override;
    STDMETHODIMP SetExternalDispatch(IDispatch*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExternalUIHandler(IUnknown*) override { return E_NOTIMPL; }
    STDMETHODIMP CreateControlLic(LPCOLESTR, HWND, IStream*, BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP CreateControlLicEx(LPCOLESTR name, HWND window, IStream* stream, IUnknown** control,
                                    REFIID events, IUnknown* sink, BSTR licence) override;

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleInPlaceSiteEx
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return OnInPlaceActivateEx(nullptr, 0); }
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                  RECT* clip, OLEINPLACEFRAMEINFO* info) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override { return OnInPlaceDeactivateEx(TRUE); }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(const RECT*) override { return E_NOTIMPL; }
    STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
    STDMETHODIMP OnInPlaceDeactivateEx(BOOL noRedraw) override;
    STDMETHODIMP RequestUIActivate() override { return S_OK; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** object) override;
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IOleContainer
    STDMETHODIMP ParseDisplayName(IBindCtx*, LPOLESTR, ULONG*, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP EnumObjects(DWORD, IEnumUnknown**) override { return E_NOTIMPL; }
    STDMETHODIMP LockContainer(BOOL) override { return S_OK; }

    // IObjectWithSite: the site of this site, which QueryService falls back to.
    STDMETHODIMP SetSite(IUnknown* site) override;
    STDMETHODIMP GetSite(REFIID iid, void** out) override;

    // IServiceProvider
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** out) override;

    // IDocHostUIHandler
    STDMETHODIMP ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch*) override { return S_FALSE; }
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* info) override;
    STDMETHODIMP ShowUI(DWORD, IOleInPlaceActiveObject*, IOleCommandTarget*, IOleInPlaceFrame*,
                        IOleInPlaceUIWindow*) override {
        return S_FALSE;
    }
    STDMETHODIMP HideUI() override { return E_NOTIMPL; }
    STDMETHODIMP UpdateUI() override { return E_NOTIMPL; }
    STDMETHODIMP EnableModeless(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, const GUID*, DWORD) override { return S_FALSE; }
    STDMETHODIMP GetOptionKeyPath(LPOLESTR*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetDropTarget(IDropTarget*, IDropTarget**) override { return E_NOTIMPL; }
    STDMETHODIMP GetExternal(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateUrl(DWORD, LPWSTR, LPWSTR*) override { return S_FALSE; }
    STDMETHODIMP FilterDataObject(IDataObject*, IDataObject**) override { return S_FALSE; }

    // IDispatch: there are no ambient properties.
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

  protected:
    IUnknown* Control() const { return control_.Get(); }
    bool ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void OnFinalMessage(HWND) override { Release(); }

  private:
    HRESULT ActivateControl();
    void Advise(REFIID events, IUnknown* sink);
    void FitControl();
    void FocusControl();
    void ReleaseAll();
    IOleClientSite* ClientSite() { return this; }

    ComPtr<IUnknown> control_;
    ComPtr<IOleObject> object_;
    ComPtr<IOleInPlaceObject> inPlace_;
    ComPtr<InPlaceFrame> frame_;
    ComPtr<IUnknown> site_;
    IID events_ = IID_NULL;
    DWORD eventCookie_ = 0;
    bool uiActive_ = false;
};

}  // namespace tarvik
