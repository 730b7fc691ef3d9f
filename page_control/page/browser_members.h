#pragma once

#include <windows.h>
#include <exdisp.h>

// Members of published interfaces that return E_NOTIMPL. The page control overrides those it implements.
namespace tarvik {

class BrowserMembers : public IWebBrowser2 {
  public:
    STDMETHODIMP GoBack() override { return E_NOTIMPL; }
    STDMETHODIMP GoForward() override { return E_NOTIMPL; }
    STDMETHODIMP GoHome() override { return E_NOTIMPL; }
    STDMETHODIMP GoSearch() override { return E_NOTIMPL; }
    STDMETHODIMP Navigate(BSTR, VARIANT*, VARIANT*, VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP Refresh() override { return E_NOTIMPL; }
    STDMETHODIMP Refresh2(VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP Stop() override { return E_NOTIMPL; }
    STDMETHODIMP get_Application(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_Parent(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_Container(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_Document(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP get_TopLevelContainer(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Type(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Left(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Left(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_Top(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Top(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_Width(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Width(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_Height(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Height(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP get_LocationName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_LocationURL(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Busy(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP Quit() override { return E_NOTIMPL; }
    STDMETHODIMP ClientToWindow(int*, int*) override { return E_NOTIMPL; }
    STDMETHODIMP PutProperty(BSTR, VARIANT) override { return E_NOTIMPL; }
    STDMETHODIMP GetProperty(BSTR, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Name(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_HWND(SHANDLE_PTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_FullName(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Path(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Visible(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Visible(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_StatusBar(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_StatusBar(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_StatusText(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP put_StatusText(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP get_ToolBar(int*) override { return E_NOTIMPL; }
    STDMETHODIMP put_ToolBar(int) override { return E_NOTIMPL; }
    STDMETHODIMP get_MenuBar(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_MenuBar(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_FullScreen(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_FullScreen(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP Navigate2(VARIANT*, VARIANT*, VARIANT*, VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP QueryStatusWB(OLECMDID, OLECMDF*) override { return E_NOTIMPL; }
    STDMETHODIMP ExecWB(OLECMDID, OLECMDEXECOPT, VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP ShowBrowserBar(VARIANT*, VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    STDMETHODIMP get_ReadyState(READYSTATE*) override { return E_NOTIMPL; }
    STDMETHODIMP get_Offline(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Offline(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_Silent(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Silent(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_RegisterAsBrowser(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_RegisterAsBrowser(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_RegisterAsDropTarget(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_RegisterAsDropTarget(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_TheaterMode(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_TheaterMode(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_AddressBar(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_AddressBar(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP get_Resizable(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP put_Resizable(VARIANT_BOOL) override { return E_NOTIMPL; }
};

}  // namespace tarvik
