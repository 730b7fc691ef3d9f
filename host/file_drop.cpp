#include "host/file_drop.h"

#include <exdisp.h>
#include <mshtml.h>
#include <shellapi.h>

#include "base/html_element.h"
#include "base/path.h"
#include "script/value_operations.h"
#include "tarvik/marshaled_object.h"
#include "tarvik/owners.h"
#include "tarvik/properties.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

ComPtr<IHTMLElement> ElementAt(IUnknown* browser, HWND window, POINTL screen) {
    POINT point = {screen.x, screen.y};
    ScreenToClient(window, &point);
    ComPtr<IHTMLElement> element;
    ComPtr<IDispatch> document;
    const auto control = Query<IWebBrowser2>(browser);
    if (!control || FAILED(control->get_Document(document.GetAddressOf()))) return nullptr;
    const auto html = Query<IHTMLDocument2>(document.Get());
    if (html) html->elementFromPoint(point.x, point.y, element.GetAddressOf());
    return element;
}

ComPtr<IDispatch> BindingOf(IDispatch* dragfile, IHTMLElement* element) {
    Variant id;
    const Bstr name(L"id");
    element->getAttribute(name.Get(), 0, &id);
    Variant binding;
    CallScriptMember(dragfile, L"get", {&id}, &binding);
    return binding.Is(VT_DISPATCH) ? ComPtr<IDispatch>(binding.pdispVal) : nullptr;
}

// Owner of a medium from a data object, and of the lock on its memory.
class LockedMedium {
  public:
    explicit LockedMedium(STGMEDIUM medium) : medium_(medium), lock_(GlobalLock(medium.hGlobal)) {}
    ~LockedMedium() {
        if (lock_) GlobalUnlock(medium_.hGlobal);
        ReleaseStgMedium(&medium_);
    }
    LockedMedium(const LockedMedium&) = delete;
    LockedMedium& operator=(const LockedMedium&) = delete;
    HDROP Files() const { return static_cast<HDROP>(lock_); }

  private:
    STGMEDIUM medium_;
    void* lock_;
};

}  // namespace

ComPtr<IDispatch> FindDropBinding(IDispatch* dragfile, IUnknown* browser, HWND window, POINTL point) {
    for (auto element = ElementAt(browser, window, point); element; element = ParentElement(element.Get())) {
        if (auto binding = BindingOf(dragfile, element.Get())) return binding;
    }
    return nullptr;
}

HRESULT ReadDroppedFiles(IDataObject* data, IDispatch* array) {
    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    if (const HRESULT status = data->GetData(&format, &medium); FAILED(status)) return status;
    const LockedMedium locked(medium);
    const ScriptObject files(array);
    if (!locked.Files()) return E_FAIL;
    const UINT count = DragQueryFileW(locked.Files(), static_cast<UINT>(-1), nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        const std::wstring path =
            ReadPath([&](wchar_t* buffer) { DragQueryFileW(locked.Files(), i, buffer, kPathLength); });
        if (path.empty()) continue;
        files.Push(path);
    }
    return S_OK;
}

void CallDropBinding(IDispatch* binding, IDispatch* array) {
    const Variant callback = ReadScriptProperty(binding, L"callback");
    ComPtr<IDispatch> function;
    if (callback.Is(VT_DISPATCH)) function = callback.pdispVal;
    if (callback.Is(VT_UNKNOWN))
        function = MarshaledObject(Query<IStream>(callback.punkVal)).Get().AsDispatch();
    const Variant files = Variant::Object(array);
    const Variant context = ReadScriptProperty(binding, L"context");
    if (function) CallWithContext(function.Get(), files, context, nullptr);
}

}  // namespace tarvik
