// The interfaces of the site that the control calls.

#include "atl/ax_host.h"

namespace tarvik {

STDMETHODIMP CAxHostWindow::GetContainer(IOleContainer** container) {
    return CopyTo(ComPtr<IOleContainer>(this), container);
}

STDMETHODIMP CAxHostWindow::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = Window();
    return S_OK;
}

STDMETHODIMP CAxHostWindow::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
    if (noRedraw) *noRedraw = FALSE;
    inPlace_ = Query<IOleInPlaceObject>(control_.Get());
    return S_OK;
}

STDMETHODIMP CAxHostWindow::OnInPlaceDeactivateEx(BOOL) {
    inPlace_.Reset();
    return S_OK;
}

STDMETHODIMP CAxHostWindow::OnUIActivate() {
    uiActive_ = true;
    return S_OK;
}

STDMETHODIMP CAxHostWindow::OnUIDeactivate(BOOL) {
    uiActive_ = false;
    return S_OK;
}

STDMETHODIMP CAxHostWindow::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                             RECT* position, RECT* clip, OLEINPLACEFRAMEINFO* info) {
    if (!frame || !document || !position || !clip) return E_POINTER;
    CopyTo(frame_, frame);
    *document = nullptr;  // allowed if the frame and the document window are the same
    GetClientRect(Window(), position);
    *clip = *position;
    if (info) *info = {sizeof *info, FALSE, GetAncestor(Window(), GA_ROOT), nullptr, 0};
    return S_OK;
}

STDMETHODIMP CAxHostWindow::GetExtendedControl(IDispatch** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return object_ ? object_->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(object)) : E_UNEXPECTED;
}

STDMETHODIMP CAxHostWindow::SetSite(IUnknown* site) {
    site_ = site;
    return S_OK;
}

STDMETHODIMP CAxHostWindow::GetSite(REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return site_ ? site_->QueryInterface(iid, out) : E_FAIL;
}

STDMETHODIMP CAxHostWindow::QueryService(REFGUID service, REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    const auto provider = Query<IServiceProvider>(site_.Get());
    return provider ? provider->QueryService(service, iid, out) : E_NOINTERFACE;
}

STDMETHODIMP CAxHostWindow::GetHostInfo(DOCHOSTUIINFO*) {
    return S_OK;
}

}  // namespace tarvik
