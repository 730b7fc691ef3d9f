// The control as an OLE object, active in place in its container.

#include "page_control/page/page_control.h"
#include "tarvik/status.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

constexpr DISPID kWindowStateChanged = 283;
constexpr LONG kUserVisible = 1;  // OLECMDIDF_WINDOWSTATE_USERVISIBLE

}  // namespace

STDMETHODIMP PageControl::SetClientSite(IOleClientSite* site) {
    site_ = site;
    textIsSelectable_ = true;
    const auto handler = Query<IDocHostUIHandler>(site);
    if (!handler) return S_OK;
    DOCHOSTUIINFO info = {sizeof info};
    if (SUCCEEDED(handler->GetHostInfo(&info)))
        textIsSelectable_ = (info.dwFlags & DOCHOSTUIFLAG_DIALOG) == 0;
    CoTaskMemFree(info.pchHostCss);
    CoTaskMemFree(info.pchHostNS);
    return S_OK;
}

STDMETHODIMP PageControl::Close(DWORD) {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return InPlaceDeactivate();
}

STDMETHODIMP PageControl::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = 0;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *status = OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST |
              OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE;
    return S_OK;
}

STDMETHODIMP PageControl::SetExtent(DWORD, SIZEL* extent) {
    if (!extent) return E_POINTER;
    extent_ = *extent;
    return S_OK;
}

STDMETHODIMP PageControl::GetExtent(DWORD, SIZEL* extent) {
    if (!extent) return E_POINTER;
    *extent = extent_;
    return S_OK;
}

STDMETHODIMP PageControl::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent, const RECT* position) {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return Guard([&]() -> HRESULT {
        switch (verb) {
            case OLEIVERB_PRIMARY:
            case OLEIVERB_SHOW:
            case OLEIVERB_UIACTIVATE: {
                if (const HRESULT status = Activate(parent, position); FAILED(status)) return status;
                Show(true);
                ActivateUi();
                if (windows_) SetFocus(windows_->Server());
                return S_OK;
            }
            case OLEIVERB_INPLACEACTIVATE:
                return Activate(parent, position);
            case OLEIVERB_HIDE:
                UIDeactivate();
                Show(false);
                return S_OK;
            default:
                return OLEOBJ_S_INVALIDVERB;
        }
    });
}

HRESULT PageControl::Activate(HWND parent, const RECT* position) {
    if (windows_) return S_OK;
    const auto site = Query<IOleInPlaceSite>(site_.Get());
    if (!site || site->CanInPlaceActivate() != S_OK) return E_FAIL;
    if (const HRESULT status = site->OnInPlaceActivate(); FAILED(status)) return status;
    inPlaceSite_ = site;
    const HRESULT status = Guard([&] { MakePage(parent, position); });
    if (FAILED(status)) InPlaceDeactivate();
    return status;
}

void PageControl::MakePage(HWND parent, const RECT* position) {
    const auto site = inPlaceSite_;  // any of these calls may deactivate the control
    site->GetWindow(&parent);
    RECT rectangle = position ? *position : RECT{};
    RECT clip = {};
    ComPtr<IOleInPlaceUIWindow> document;
    OLEINPLACEFRAMEINFO info = {sizeof info};
    site->GetWindowContext(frame_.ReleaseAndGetAddressOf(), document.GetAddressOf(), &rectangle, &clip,
                           &info);
    if (!inPlaceSite_) throw StatusError(E_ABORT);
    mouse_ = MakeCom<ConnectionPoint>(kElementEvents, nullptr);
    windows_.emplace(parent, rectangle, *this);
    const auto page = std::make_shared<Page>(engine_, windows_->Server(), *this, textIsSelectable_);
    page_ = page;
    document_ = MakeCom<HtmlDocument>(page_, mouse_);
    RegisterDropTarget();
    if (!pending_.empty()) page->Navigate(std::exchange(pending_, {}));
}

// WindowStateChanged(state, valid bits)
void PageControl::Show(bool visible) {
    if (!windows_ || !windows_->Show(visible)) return;
    Variant state = Variant::I4(visible ? kUserVisible : 0), valid = Variant::I4(kUserVisible);
    VARIANT arguments[] = {state, valid};
    events_->Fire(kWindowStateChanged, arguments);
}

void PageControl::ActivateUi() {
    if (!inPlaceSite_ || std::exchange(uiActive_, true)) return;
    inPlaceSite_->OnUIActivate();
    if (frame_) frame_->SetActiveObject(this, nullptr);
}

// The site may provide a drop target.
void PageControl::RegisterDropTarget() {
    ComPtr<IDropTarget> target;
    const auto handler = Query<IDocHostUIHandler>(site_.Get());
    if (handler) handler->GetDropTarget(nullptr, target.GetAddressOf());
    const auto drops = [weak = std::weak_ptr(page_)] {
        const auto page = weak.lock();
        return page ? page->Drops() : nullptr;
    };
    RegisterDragDrop(windows_->Server(), MakeCom<DropTarget>(target, drops).Get());
}

STDMETHODIMP PageControl::UIDeactivate() {
    if (!std::exchange(uiActive_, false)) return S_OK;
    if (frame_) frame_->SetActiveObject(nullptr, nullptr);
    if (inPlaceSite_) inPlaceSite_->OnUIDeactivate(FALSE);
    return S_OK;
}

STDMETHODIMP PageControl::InPlaceDeactivate() {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    UIDeactivate();
    // Moved out first, so that nested calls find the control inactive.
    const auto site = std::move(inPlaceSite_);
    if (!site) return S_OK;
    const HRESULT status = Guard([&] {
        if (windows_) RevokeDragDrop(windows_->Server());
        // A sink may still try to connect.
        if (mouse_) mouse_->Close();
        if (const auto page = page_) page->Close();
    });
    document_.Reset();
    // The window is destroyed before the page, which paints it.
    windows_.reset();
    page_.reset();
    frame_.Reset();
    site->OnInPlaceDeactivate();
    return status;
}

STDMETHODIMP PageControl::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = windows_ ? windows_->Outer() : nullptr;
    return windows_ ? S_OK : E_FAIL;
}

STDMETHODIMP PageControl::SetObjectRects(const RECT* position, const RECT*) {
    if (!position) return E_POINTER;
    if (windows_) windows_->Move(*position);
    return S_OK;
}

// The site filters the keys of this control's window; the page gets the rest.
STDMETHODIMP PageControl::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (!windows_ || !isKey || message->hwnd != windows_->Server()) return S_FALSE;
    const auto handler = Query<IDocHostUIHandler>(site_.Get());
    return handler && handler->TranslateAccelerator(message, nullptr, 0) == S_OK ? S_OK : S_FALSE;
}

STDMETHODIMP PageControl::FindConnectionPoint(REFIID events, IConnectionPoint** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return events == DIID_DWebBrowserEvents2 ? CopyTo(events_, out) : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP_(BOOL) PageControl::IsRunning() {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    const auto page = page_;
    bool running = false;
    return page && SUCCEEDED(Guard([&] { running = page->CanRunScript(); })) && running;
}

STDMETHODIMP PageControl::GetClassID(CLSID* id) {
    if (!id) return E_POINTER;
    *id = CLSID_WebBrowser;
    return S_OK;
}

}  // namespace tarvik
