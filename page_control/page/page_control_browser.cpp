// The control as IWebBrowser2.

#include "page_control/page/page_control.h"
#include "tarvik/bstr.h"
#include "tarvik/status.h"
#include "tarvik/variant.h"

namespace tarvik {

STDMETHODIMP PageControl::Navigate(BSTR url, VARIANT* flags, VARIANT* frame, VARIANT* post,
                                   VARIANT* headers) {
    Variant address = Variant::Text(Bstr::View(url));
    return Navigate2(&address, flags, frame, post, headers);
}

STDMETHODIMP PageControl::Navigate2(VARIANT* url, VARIANT*, VARIANT*, VARIANT*, VARIANT*) {
    if (!url) return E_INVALIDARG;
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return Guard([&]() -> HRESULT {
        Variant address = Variant::Copy(*url);
        if (!address.ChangeType(VT_BSTR)) return E_INVALIDARG;
        const std::wstring text(Bstr::View(address.bstrVal));
        if (page_)
            page_->Navigate(text);
        else
            pending_ = text;
        return S_OK;
    });
}

STDMETHODIMP PageControl::GoBack() {
    return page_ ? Guard([&] { page_->GoInHistory(-1); }) : E_UNEXPECTED;
}

STDMETHODIMP PageControl::GoForward() {
    return page_ ? Guard([&] { page_->GoInHistory(1); }) : E_UNEXPECTED;
}

STDMETHODIMP PageControl::Refresh() {
    return page_ ? Guard([&] { page_->Reload(); }) : E_UNEXPECTED;
}

STDMETHODIMP PageControl::Stop() {
    return page_ ? Guard([&] { page_->Stop(); }) : E_UNEXPECTED;
}

STDMETHODIMP PageControl::get_Application(IDispatch** out) {
    return CopyTo(ComPtr<IDispatch>(static_cast<IWebBrowser2*>(this)), out);
}

STDMETHODIMP PageControl::get_Document(IDispatch** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return document_ ? CopyTo(document_, out) : S_OK;
}

STDMETHODIMP PageControl::get_LocationName(BSTR* out) {
    const auto document = document_;
    return document ? document->get_title(out) : E_UNEXPECTED;
}

STDMETHODIMP PageControl::get_LocationURL(BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { *out = Bstr(page_ ? page_->LocationOrDestination() : std::wstring()).Detach(); });
}

STDMETHODIMP PageControl::get_Busy(VARIANT_BOOL* out) {
    if (!out) return E_POINTER;
    *out = page_ && page_->IsLoading() ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP PageControl::get_ReadyState(READYSTATE* out) {
    if (!out) return E_POINTER;
    const bool empty = !page_ || (page_->Location().empty() && !page_->IsLoading());
    *out = empty ? READYSTATE_UNINITIALIZED : page_->IsLoading() ? READYSTATE_LOADING : READYSTATE_COMPLETE;
    return S_OK;
}

STDMETHODIMP PageControl::get_HWND(SHANDLE_PTR* out) {
    if (!out) return E_POINTER;
    *out = windows_ ? reinterpret_cast<SHANDLE_PTR>(windows_->Outer()) : 0;
    return windows_ ? S_OK : E_FAIL;
}

STDMETHODIMP PageControl::get_RegisterAsBrowser(VARIANT_BOOL* out) {
    if (!out) return E_POINTER;
    *out = registerAsBrowser_ ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

STDMETHODIMP PageControl::put_RegisterAsBrowser(VARIANT_BOOL value) {
    registerAsBrowser_ = value != VARIANT_FALSE;
    return S_OK;
}

}  // namespace tarvik
