#include "plugins/window/page_array.h"

#include <dispex.h>
#include <mshtml.h>

#include "tarvik/com_ptr.h"
#include "tarvik/properties.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

ComPtr<IHTMLWindow2> WindowOf(IWebBrowser2* browser) {
    ComPtr<IDispatch> document;
    ComPtr<IHTMLWindow2> window;
    if (browser) browser->get_Document(document.GetAddressOf());
    const auto html = Query<IHTMLDocument2>(document.Get());
    if (html) html->get_parentWindow(window.GetAddressOf());
    return window;
}

// Null if the value is not an object.
IDispatch* ObjectOf(const Variant& value) {
    return value.Is(VT_DISPATCH) ? value.pdispVal : nullptr;
}

Variant NewArray(IWebBrowser2* browser) {
    const Variant type = ReadScriptProperty(WindowOf(browser).Get(), L"Array");
    const auto constructor = Query<IDispatchEx>(ObjectOf(type));
    Variant array;
    DISPPARAMS none = {};
    if (constructor)
        constructor->InvokeEx(DISPID_VALUE, kScriptLocale, DISPATCH_CONSTRUCT, &none, &array, nullptr,
                              nullptr);
    return array;
}

}  // namespace

Variant MakePageArray(IWebBrowser2* browser, const std::vector<std::wstring>& texts) {
    Variant array = NewArray(browser);
    if (!ObjectOf(array)) return Variant::Null();
    for (size_t i = 0; i < texts.size(); ++i) {
        const std::wstring index = DecimalText(i);
        if (FAILED(SetScriptProperty(array.pdispVal, index.c_str(), Variant::Text(texts[i]))))
            return Variant::Null();
    }
    return array;
}

}  // namespace tarvik
