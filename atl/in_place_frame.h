#pragma once

#include <windows.h>
#include <oleidl.h>

#include "tarvik/com_object.h"

namespace tarvik {

// The frame window of an in-place active control. It has no menus, toolbars or status bar to share. It
// ignores the active object, because the message loop passes messages to the control directly.
class InPlaceFrame
    : public ComObject<As<IOleInPlaceFrame, IOleInPlaceFrame, IOleInPlaceUIWindow, IOleWindow>> {
  public:
    explicit InPlaceFrame(HWND window) : window_(window) {}

    STDMETHODIMP GetWindow(HWND* window) override {
        if (!window) return E_POINTER;
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }
    STDMETHODIMP GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(const BORDERWIDTHS*) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(const BORDERWIDTHS*) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return S_OK; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

  private:
    HWND window_;
};

}  // namespace tarvik
