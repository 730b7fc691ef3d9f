#include "page_control/page/html_objects.h"

#include <mshtmdid.h>
#include <olectl.h>

#include <initializer_list>

#include "page_control/bridge/script_source.h"
#include "tarvik/bstr.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

// The id of a name. Does not check whether the name exists, which would take another call of the page.
HRESULT IdOf(IDispatch* object, const wchar_t* name, DISPID* id) {
    const auto script = Query<IDispatchEx>(object);
    return script ? script->GetDispID(Bstr(name).Get(), fdexNameCaseSensitive | fdexNameEnsure, id)
                  : E_UNEXPECTED;
}

HRESULT InvokeMember(IDispatch* object, const wchar_t* name, WORD flags, DISPPARAMS parameters,
                     Variant& value) {
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT status = IdOf(object, name, &id); FAILED(status)) return status;
    return object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, value.Receive(), nullptr,
                          nullptr);
}

HRESULT Get(IDispatch* object, const wchar_t* name, Variant& value) {
    return InvokeMember(object, name, DISPATCH_PROPERTYGET, {}, value);
}

HRESULT GetText(IDispatch* object, const wchar_t* name, BSTR* out) {
    Variant value;
    const HRESULT status = Get(object, name, value);
    if (SUCCEEDED(status) && value.Is(VT_BSTR)) *out = std::exchange(value.bstrVal, nullptr);
    return status;
}

// Wraps the script object that a call returned as an element; null if it returned none.
HRESULT CopyElement(HRESULT status, const Variant& value, const std::shared_ptr<Page>& page,
                    const ComPtr<ConnectionPoint>& mouse, IHTMLElement** out) {
    if (FAILED(status) || !value.Is(VT_DISPATCH)) return status;
    return CopyTo(MakeCom<HtmlElement>(page, ComPtr<IDispatch>(value.pdispVal), mouse), out);
}

}  // namespace

ComPtr<IDispatch> HtmlDocument::Script() {
    const auto context = page_->Context();
    if (context != context_.lock()) script_.Reset();
    if (context && !script_) {
        Variant document;
        Get(context->Window().Get(), L"document", document);
        if (document.Is(VT_DISPATCH)) script_ = document.pdispVal;
        context_ = context;
    }
    return script_;
}

STDMETHODIMP HtmlDocument::get_Script(IDispatch** out) {
    return Guard([&] { return CopyTo(page_->Globals(), out); });
}

STDMETHODIMP HtmlDocument::get_parentWindow(IHTMLWindow2** out) {
    return Guard([&] { return CopyTo(MakeCom<HtmlWindow>(page_, ComPtr<IHTMLDocument2>(this)), out); });
}

STDMETHODIMP HtmlDocument::Exec(const GUID* group, DWORD command, DWORD, VARIANT*, VARIANT* out) {
    if (group) return OLECMDERR_E_UNKNOWNGROUP;
    if (command != OLECMDID_ONUNLOAD) return OLECMDERR_E_NOTSUPPORTED;
    return Guard([&] {
        const bool mayUnload = page_->MayUnload();
        if (out) Variant::Bool(mayUnload).MoveInto(out);
    });
}

HRESULT HtmlDocument::ElementOf(const wchar_t* name, IHTMLElement** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] {
        Variant element;
        const HRESULT status = Get(Script().Get(), name, element);
        return CopyElement(status, element, page_, mouse_, out);
    });
}

HRESULT HtmlDocument::TextOf(const wchar_t* name, BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { return GetText(Script().Get(), name, out); });
}

STDMETHODIMP HtmlDocument::get_body(IHTMLElement** out) {
    return ElementOf(L"body", out);
}

STDMETHODIMP HtmlDocument::get_activeElement(IHTMLElement** out) {
    return ElementOf(L"activeElement", out);
}

STDMETHODIMP HtmlDocument::elementFromPoint(LONG x, LONG y, IHTMLElement** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] {
        const double scale = page_->Scale();
        Variant reversed[] = {Variant::R8(y / scale), Variant::R8(x / scale)};
        Variant element;
        const HRESULT status = InvokeMember(Script().Get(), L"elementFromPoint", DISPATCH_METHOD,
                                            {reversed, nullptr, 2, 0}, element);
        return CopyElement(status, element, page_, mouse_, out);
    });
}

STDMETHODIMP HtmlDocument::get_readyState(BSTR* out) {
    return TextOf(L"readyState", out);
}

STDMETHODIMP HtmlDocument::get_title(BSTR* out) {
    return TextOf(L"title", out);
}

STDMETHODIMP HtmlDocument::get_URL(BSTR* out) {
    if (!out) return E_POINTER;
    return Guard([&] { *out = Bstr(page_->Location()).Detach(); });
}

STDMETHODIMP HtmlWindow::execScript(BSTR code, BSTR, VARIANT* result) {
    return Guard([&]() -> HRESULT {
        const auto context = page_->Context();
        if (!context) return E_UNEXPECTED;
        auto outcome = context->Run({.name = "eval", .member = ScriptText(Bstr::View(code))});
        if (outcome.type == ScriptContext::Outcome::Type::kError) return DISP_E_EXCEPTION;
        if (result) outcome.value.MoveInto(result);
        return S_OK;
    });
}

HRESULT HtmlElement::Text(const wchar_t* name, BSTR* out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] { return GetText(script_.Get(), name, out); });
}

STDMETHODIMP HtmlElement::get_parentElement(IHTMLElement** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    return Guard([&] {
        Variant parent;
        const HRESULT status = Get(script_.Get(), L"parentElement", parent);
        return CopyElement(status, parent, page_, mouse_, out);
    });
}

// A missing attribute reads as null.
STDMETHODIMP HtmlElement::getAttribute(BSTR name, LONG, VARIANT* out) {
    if (!out) return E_POINTER;
    VariantInit(out);
    return Guard([&] {
        Variant argument = Variant::Text(Bstr::View(name));
        Variant value;
        const HRESULT status =
            InvokeMember(script_.Get(), L"getAttribute", DISPATCH_METHOD, {&argument, nullptr, 1, 0}, value);
        value.MoveInto(out);
        return status;
    });
}

STDMETHODIMP HtmlElement::FindConnectionPoint(REFIID events, IConnectionPoint** out) {
    if (!out) return E_POINTER;
    *out = nullptr;
    if (events != kElementEvents) return CONNECT_E_NOCONNECTION;
    return Guard([&] {
        page_->ListenToMouse();
        return CopyTo(mouse_, out);
    });
}

STDMETHODIMP HtmlElement::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    *id = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = kElementEvents;
    return S_OK;
}

}  // namespace tarvik
