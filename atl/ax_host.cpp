#include "atl/ax_host.h"

#include <exdisp.h>
#include <oleauto.h>

#include "atl/ax_window.h"
#include "base/owners.h"
#include "tarvik/bstr.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

constexpr int kHimetricPerInch = 2540;

// OLE measures extents in hundredths of a millimetre.
SIZE PixelsToHimetric(SIZE pixels) {
    const UniqueMemoryDc screen(CreateCompatibleDC(nullptr));
    return {MulDiv(pixels.cx, kHimetricPerInch, GetDeviceCaps(screen.Get(), LOGPIXELSX)),
            MulDiv(pixels.cy, kHimetricPerInch, GetDeviceCaps(screen.Get(), LOGPIXELSY))};
}

RECT ClientRect(HWND window) {
    RECT rect = {};
    GetClientRect(window, &rect);
    return rect;
}

// With a reference for the sender.
LRESULT AsMessageResult(IUnknown* object) {
    if (object) object->AddRef();
    return reinterpret_cast<LRESULT>(object);
}

HRESULT Navigate(IUnknown* control, LPCOLESTR address) {
    const auto browser = Query<IWebBrowser2>(control);
    if (!browser) return E_NOINTERFACE;
    Variant url = Variant::Text(address);
    Variant none;
    return browser->Navigate2(&url, &none, &none, &none, &none);
}

}  // namespace

STDMETHODIMP CAxHostWindow::CreateControlLicEx(LPCOLESTR name, HWND window, IStream*, IUnknown** control,
                                               REFIID events, IUnknown* sink, BSTR) {
    if (control) *control = nullptr;
    if (!name || !IsWindow(window)) return E_INVALIDARG;
    return Guard([&] {
        // A site has one control: a second one would leak.
        if (!SubclassWindow(window)) return E_FAIL;
        AddRef();  // the window's reference; OnFinalMessage releases it
        ComPtr<IUnknown> created;
        ThrowIfFailed(CoCreateInstance(CLSID_WebBrowser, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                       reinterpret_cast<void**>(created.GetAddressOf())));
        // Creating the control, and the calls below, may run code that closes the window. WM_DESTROY has then
        // passed, and a control stored now would never be released.
        if (!Window()) return E_ABORT;
        control_ = created;
        ThrowIfFailed(ActivateControl());
        Advise(events, sink);
        ThrowIfFailed(Navigate(control_.Get(), name));
        if (!control_) return E_ABORT;
        return control ? CopyTo(created, control) : S_OK;
    });
}

// Any call into the control may run script, which may close the window. So this holds a reference to each
// object that it still uses after a call.
HRESULT CAxHostWindow::ActivateControl() {
    const auto object = Query<IOleObject>(control_.Get());
    if (!object) return E_NOINTERFACE;
    object_ = object;
    frame_ = MakeCom<InPlaceFrame>(Window());

    DWORD misc = 0;
    object->GetMiscStatus(DVASPECT_CONTENT, &misc);
    if (misc & OLEMISC_SETCLIENTSITEFIRST) object->SetClientSite(ClientSite());
    if (const auto stream = Query<IPersistStreamInit>(control_.Get())) stream->InitNew();
    if (!(misc & OLEMISC_SETCLIENTSITEFIRST)) object->SetClientSite(ClientSite());
    object->SetHostNames(L"AXWIN", nullptr);

    RECT rect = ClientRect(Window());
    SIZE extent = PixelsToHimetric({rect.right, rect.bottom});
    object->SetExtent(DVASPECT_CONTENT, &extent);
    const HRESULT status =
        object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, ClientSite(), 0, Window(), &rect);
    if (const auto withSite = Query<IObjectWithSite>(control_.Get())) withSite->SetSite(AsUnknown());
    return status;
}

void CAxHostWindow::Advise(REFIID events, IUnknown* sink) {
    const auto container = Query<IConnectionPointContainer>(control_.Get());
    ComPtr<IConnectionPoint> point;
    if (!sink || !container || FAILED(container->FindConnectionPoint(events, point.GetAddressOf()))) return;
    if (SUCCEEDED(point->Advise(sink, &eventCookie_))) events_ = events;
}

void CAxHostWindow::ReleaseAll() {
    if (!control_) return;
    const ComPtr<IUnknown> control = std::move(control_);
    const ComPtr<IOleObject> object = std::move(object_);
    inPlace_.Reset();
    if (eventCookie_) {
        ComPtr<IConnectionPoint> point;
        const auto container = Query<IConnectionPointContainer>(control.Get());
        if (container && SUCCEEDED(container->FindConnectionPoint(events_, point.GetAddressOf()))) {
            point->Unadvise(eventCookie_);
        }
        eventCookie_ = 0;
    }
    if (object) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    if (const auto withSite = Query<IObjectWithSite>(control.Get())) withSite->SetSite(nullptr);
    frame_.Reset();
}

void CAxHostWindow::FitControl() {
    const ComPtr<IOleObject> object = object_;
    const ComPtr<IOleInPlaceObject> inPlace = inPlace_;
    if (!object || !inPlace) return;
    const RECT rect = ClientRect(Window());
    SIZE extent = PixelsToHimetric({rect.right, rect.bottom});
    object->SetExtent(DVASPECT_CONTENT, &extent);
    inPlace->SetObjectRects(&rect, &rect);
}

void CAxHostWindow::FocusControl() {
    const ComPtr<IOleObject> object = object_;
    if (!object) return;
    RECT rect = ClientRect(Window());
    if (!uiActive_) object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, ClientSite(), 0, Window(), &rect);
    // Some controls do not take the focus when they are activated.
    const HWND child = ::GetWindow(Window(), GW_CHILD);
    if (GetFocus() == Window() && child) SetFocus(child);
}

bool CAxHostWindow::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == AtlGetHostMessage()) {
        result = AsMessageResult(AsUnknown());
        return true;
    }
    if (message == AtlGetControlMessage()) {
        result = AsMessageResult(control_.Get());
        return true;
    }
    switch (message) {
        case WM_ERASEBKGND:
            result = 1;
            return inPlace_ != nullptr;  // the control covers the window
        case WM_SIZE:
            FitControl();
            return false;
        case WM_SETFOCUS:
            result = DefWindowProc(message, wParam, lParam);
            FocusControl();
            return true;
        case WM_DESTROY:
            // The window handles the message first, because it still needs the control.
            result = DefWindowProc(message, wParam, lParam);
            ReleaseAll();
            return true;
        default:
            return false;
    }
}

STDMETHODIMP CAxHostWindow::QueryControl(REFIID iid, void** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return control_ ? control_->QueryInterface(iid, out) : E_UNEXPECTED;
}

}  // namespace tarvik
