#pragma once

#include <windows.h>
#include <objidl.h>

#include <string_view>

#include "page_control/engine/parameters.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// What is dragged, as DevTools describes it (Input.DragData) and as a data object of OLE: text, HTML, an
// address, files. A page's data has a format of its own, too, in which other pages find all of its types.

// Of a page. The files are those that the page names with `DownloadURL` and that exist.
ComPtr<IDataObject> ToDataObject(const Json& dragData);

// `effects` are those that the source allows. Without items and files if no page could use the data.
Json FromDataObject(IDataObject* object, DWORD effects);

// Whether the data is a page's own, without files.
bool IsPageData(IDataObject* object);

// The effects of OLE, and the operations of DevTools, which names them in a page.
DWORD AllowedEffects(const Json& dragData);
DWORD EffectNamed(std::string_view name);
const char* EffectName(DWORD effect);

}  // namespace tarvik
