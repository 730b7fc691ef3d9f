#include "plugins/window/drag_sink.h"

#include <mshtmdid.h>

#include <cwchar>
#include <optional>

#include "app/log/log.h"
#include "base/html_element.h"
#include "tarvik/bstr.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

// By contract the start of a drag moves the window, too.
constexpr DISPID kDragStart = static_cast<DISPID>(DISPID_EVMETH_ONDRAGSTART);

// Ignores case. `text` may be null.
bool IsText(BSTR text, const wchar_t* other) {
    return text && _wcsicmp(text, other) == 0;
}

bool IsControl(IHTMLElement* element) {
    Bstr name;
    element->get_tagName(name.Receive());
    return IsText(name.Get(), L"input") || IsText(name.Get(), L"textarea") || IsText(name.Get(), L"button");
}

// Empty if the element has no valid attribute, so that its parent decides.
std::optional<bool> DragWindowAttribute(IHTMLElement* element) {
    Variant value;
    if (FAILED(element->getAttribute(Bstr(L"dragWindow").Get(), 0, value.Receive()))) return std::nullopt;
    if (value.Is(VT_BOOL)) return value.boolVal == VARIANT_TRUE;
    if (!value.Is(VT_BSTR)) return std::nullopt;
    if (IsText(value.bstrVal, L"true")) return true;
    if (IsText(value.bstrVal, L"false")) return false;
    return std::nullopt;
}

}  // namespace

STDMETHODIMP CDragSink::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

bool CDragSink::IsPointerOverDragHandle() {
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    ComPtr<IHTMLElement> first;
    if (document_) document_->elementFromPoint(point.x, point.y, first.GetAddressOf());
    for (auto element = first; element;) {
        if (IsControl(element.Get())) return false;
        if (const auto drags = DragWindowAttribute(element.Get())) return *drags;
        auto parent = ParentElement(element.Get());
        element.Swap(parent);
    }
    return false;
}

STDMETHODIMP CDragSink::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) {
    return Guard([&] {
        const bool startsDrag = id == DISPID_MOUSEDOWN || id == kDragStart;
        if (!startsDrag || !window_ || !IsPointerOverDragHandle()) return E_NOTIMPL;
        // Starts the system's move loop.
        PostMessageW(window_, WM_NCLBUTTONDOWN, HTCAPTION, 0);
        return S_OK;
    });
}

HRESULT ElementConnection::ConnectEventToElement(IUnknown* element, IUnknown* sink) {
    constexpr const char* kLabel = "CWindowPlugin::ConnectEventToElement";
    if (!element || !sink) return E_INVALIDARG;
    const auto info = Query<IProvideClassInfo2>(element);
    if (!info) {
        TARVIK_ERROR(kLabel, L"Query IProvideClassInfo2 failed.");
        return E_FAIL;
    }
    GUID events = {};
    const HRESULT status = info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events);
    if (FAILED(status)) return status;
    const auto container = Query<IConnectionPointContainer>(element);
    if (!container) {
        TARVIK_ERROR(kLabel, L"Query IConnectionPointContainer failed.");
        return E_FAIL;
    }
    ComPtr<IConnectionPoint> point;
    container->FindConnectionPoint(events, point.GetAddressOf());
    if (!point) {
        TARVIK_ERROR(kLabel, L"Query IConnectionPoint failed.");
        return E_FAIL;
    }
    if (point_) point_->Unadvise(cookie_);
    point_.Swap(point);
    cookie_ = 0;
    return point_->Advise(sink, &cookie_);
}

}  // namespace tarvik
