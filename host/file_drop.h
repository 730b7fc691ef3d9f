#pragma once

#include <windows.h>
#include <oaidl.h>
#include <objidl.h>

#include "tarvik/com_ptr.h"

// Files dragged from the desktop onto an element of the page.
namespace tarvik {

// The binding that the plug-in `dragfile` has for the element at a point, or for its nearest ancestor with
// one; null if there is none. `browser` implements IWebBrowser2; the point is in screen coordinates.
ComPtr<IDispatch> FindDropBinding(IDispatch* dragfile, IUnknown* browser, HWND window, POINTL point);

// Appends the paths of the dragged files to a script array.
HRESULT ReadDroppedFiles(IDataObject* data, IDispatch* array);

// Calls the function of the binding with the array and the context of the binding.
void CallDropBinding(IDispatch* binding, IDispatch* array);

}  // namespace tarvik
