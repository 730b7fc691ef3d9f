#include "atl/in_place_frame.h"

namespace tarvik {

STDMETHODIMP InPlaceFrame::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_;
    return S_OK;
}

STDMETHODIMP InPlaceFrame::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    active_ = object;
    return S_OK;
}

}  // namespace tarvik
