#pragma once

#include <windows.h>
#include <mshtml.h>

#include "tarvik/bstr.h"
#include "tarvik/com_ptr.h"

// Conventions between a document's control and its site that no published header contains.
namespace tarvik {

// CGID_DocHostCommandHandler, which the libraries of some SDKs lack.
inline constexpr GUID kDocHostCommands = {
    0xF38BC242, 0xB950, 0x11D1, {0x89, 0x18, 0x00, 0xC0, 0x4F, 0xC2, 0xC8, 0x36}};
inline constexpr DWORD kShowScriptError = 40;  // OLECMDID_SHOWSCRIPTERROR

// Whether an element has the context menu of a text field; false for null and for objects that are not
// elements.
inline bool IsTextField(IUnknown* object) {
    const auto element = Query<IHTMLElement>(object);
    Bstr tag;
    if (element) element->get_tagName(tag.Receive());
    return tag.View() == L"INPUT" || tag.View() == L"TEXTAREA";
}

}  // namespace tarvik
