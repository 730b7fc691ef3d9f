#pragma once

#include <windows.h>
#include <mshtml.h>
#include <ocidl.h>

#include "script/dispatch.h"
#include "tarvik/com_ptr.h"

namespace tarvik {

// Lets the user drag the window by an element of the page with the attribute `dragWindow`. The nearest
// element with that attribute decides; input controls never drag.
class CDragSink : public CDispatchBase {
  public:
    CDragSink(HWND window, ComPtr<IHTMLDocument2> document)
        : window_(window), document_(std::move(document)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNINTERFACE;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override;

  private:
    bool IsPointerOverDragHandle();

    HWND window_;
    ComPtr<IHTMLDocument2> document_;  // by design the first one, even after a navigation
};

// Connects a sink to the default events of an element. A new connection replaces the previous one, so that
// the sink receives each event once.
class ElementConnection {
  public:
    HRESULT ConnectEventToElement(IUnknown* element, IUnknown* sink);

  private:
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

}  // namespace tarvik
