#pragma once

#include <windows.h>
#include <mshtml.h>

#include "tarvik/com_ptr.h"

namespace tarvik {

inline ComPtr<IHTMLElement> ParentElement(IHTMLElement* element) {
    ComPtr<IHTMLElement> parent;
    element->get_parentElement(parent.GetAddressOf());
    return parent;
}

}  // namespace tarvik
