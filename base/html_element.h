#pragma once

#include <windows.h>
#include <mshtml.h>

#include "tarvik/bstr.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

inline ComPtr<IHTMLElement> ParentElement(IHTMLElement* element) {
    ComPtr<IHTMLElement> parent;
    element->get_parentElement(parent.GetAddressOf());
    return parent;
}

// Whether an element has the context menu of a text field; false for null and for objects that are not
// elements.
inline bool IsTextField(IUnknown* object) {
    const auto element = Query<IHTMLElement>(object);
    Bstr tag;
    if (element) element->get_tagName(tag.Receive());
    return tag.View() == L"INPUT" || tag.View() == L"TEXTAREA";
}

}  // namespace tarvik
