#pragma once

#include <windows.h>
#include <oaidl.h>
#include <objidl.h>

#include "tarvik/com_ptr.h"

// Files dragged from the desktop onto an element of the page.
namespace tarvik {

// The binding of the nearest element at or above a point that the plug-in `dragfile` answers for; null if
// there is none. `browser` answers IWebBrowser2; the point is in screen coordinates.
ComPtr<IDispatch> FindDropBinding(IDispatch* dragfile, IUnknown* browser, HWND window, POINTL point);

// Pushes the paths of the dragged files on a script array.
HRESULT ReadDroppedFiles(IDataObject* data, IDispatch* array);

// Calls the binding's function with the array and the binding's context.
void CallDropBinding(IDispatch* binding, IDispatch* array);

}  // namespace tarvik
