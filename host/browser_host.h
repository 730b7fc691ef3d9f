#pragma once

#include <windows.h>
#include <mshtml.h>

#include "atl/ax_host.h"
#include "host/browser_host_interface.h"
#include "host/plugin_manage.h"
#include "host/security_policy.h"

namespace tarvik {

// The site of one web browser control. It controls what the page may do and injects the prologue into each
// page. Its IDispatch is the object `external`.
class CWebBrowserHost : public CAxHostWindow,
                        public IWebbrowserHost,
                        public IOleCommandTarget,
                        public IHTMLChangeSink,
                        public SecurityPolicy,
                        public IDropTarget {
  public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
        return CAxHostWindow::QueryInterface(iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return CAxHostWindow::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return CAxHostWindow::Release(); }

    // IDocHostUIHandler
    STDMETHODIMP ShowContextMenu(DWORD id, POINT* point, IUnknown* target, IDispatch* element) override;
    STDMETHODIMP GetHostInfo(DOCHOSTUIINFO* info) override;
    STDMETHODIMP TranslateAccelerator(MSG* message, const GUID* group, DWORD command) override;
    STDMETHODIMP GetDropTarget(IDropTarget* proposed, IDropTarget** out) override;
    STDMETHODIMP GetExternal(IDispatch** out) override;
    using CAxHostWindow::TranslateAccelerator;

    // IDispatch: the object `external`
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

    // IServiceProvider
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** out) override;

    // IOleCommandTarget: script errors, and the end of the program
    STDMETHODIMP QueryStatus(const GUID* group, ULONG, OLECMD*, OLECMDTEXT*) override;
    STDMETHODIMP Exec(const GUID* group, DWORD command, DWORD options, VARIANT* in, VARIANT* out) override;

    // IHTMLChangeSink
    STDMETHODIMP Notify() override;

    // IDropTarget: files dragged onto elements that the plug-in `dragfile` has bound. DragEnter always
    // rejects; DragOver decides.
    STDMETHODIMP DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;

    // IWebbrowserHost
    STDMETHODIMP SetContext(TVK::ICore* core, IUnknown* browser) override;
    STDMETHODIMP Close() override;
    STDMETHODIMP OnBrowserEvent(int dispatchId) override;
    STDMETHODIMP GetPlugin(const wchar_t* name, IDispatch** out) override;

  protected:
    void* FindInterface(REFIID iid) override;

  private:
    enum class PageState { kNone, kNavigated, kComplete };

    HRESULT FindMember(const std::wstring& name, DISPID* id);
    HRESULT CreatePlugin(const std::wstring& name, DISPID* id);
    HRESULT LoadPlugin(const VARIANT& path, VARIANT* result);
    HRESULT CreateBrowserWindow(IDispatch* options, VARIANT* result);
    HRESULT ReadPlugin(DISPID id, VARIANT* result);
    bool ShowsScriptErrors();
    void InjectPrologue();
    ComPtr<IDispatch> DropBindingAt(POINTL point);

    CPluginManage plugins_;
    PageState pageState_ = PageState::kNone;
};

}  // namespace tarvik
