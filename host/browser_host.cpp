#include "host/browser_host.h"

#include <exdisp.h>

#include "app/log/log.h"
#include "base/document_host.h"
#include "base/html_element.h"
#include "host/accelerators.h"
#include "host/file_drop.h"
#include "host/program_end.h"
#include "host/prologue.h"
#include "tarvik/bstr.h"
#include "tarvik/properties.h"

namespace tarvik {

namespace {

constexpr int kNavigateComplete2 = 252;
constexpr int kDocumentComplete = 259;

}  // namespace

void* CWebBrowserHost::FindInterface(REFIID iid) {
    if (iid == __uuidof(IWebbrowserHost)) return static_cast<IWebbrowserHost*>(this);
    if (iid == __uuidof(IOleCommandTarget)) return static_cast<IOleCommandTarget*>(this);
    if (iid == __uuidof(IHTMLChangeSink)) return static_cast<IHTMLChangeSink*>(this);
    if (iid == __uuidof(IInternetSecurityManager)) return static_cast<IInternetSecurityManager*>(this);
    if (iid == __uuidof(IDropTarget)) return static_cast<IDropTarget*>(this);
    return CAxHostWindow::FindInterface(iid);
}

STDMETHODIMP CWebBrowserHost::ShowContextMenu(DWORD, POINT*, IUnknown*, IDispatch* element) {
    return Guard([&] {
        if (IsTextField(element)) return S_FALSE;
        TARVIK_TRACE("CWebBrowserHost::ShowContextMenu");
        return S_OK;
    });
}

STDMETHODIMP CWebBrowserHost::GetHostInfo(DOCHOSTUIINFO* info) {
    TARVIK_TRACE("CWebBrowserHost::GetHostInfo");
    if (info) {
        info->dwFlags |= DOCHOSTUIFLAG_DIALOG | DOCHOSTUIFLAG_DISABLE_HELP_MENU | DOCHOSTUIFLAG_NO3DBORDER;
    }
    return S_OK;
}

STDMETHODIMP CWebBrowserHost::TranslateAccelerator(MSG* message, const GUID*, DWORD) {
    if (!message || message->message != WM_KEYDOWN) return S_FALSE;
    if (IsSwallowedKey(message->wParam, GetKeyState(VK_CONTROL) < 0, GetKeyState(VK_MENU) < 0)) return S_OK;
    TARVIK_TRACE_TEXT("CWebBrowserHost::TranslateAccelerator", L"wParam: %08X",
                      static_cast<unsigned>(message->wParam));
    return S_FALSE;
}

STDMETHODIMP CWebBrowserHost::GetDropTarget(IDropTarget*, IDropTarget** out) {
    TARVIK_TRACE("CWebBrowserHost::GetDropTarget");
    return CopyTo(ComPtr<IDropTarget>(this), out);
}

STDMETHODIMP CWebBrowserHost::GetExternal(IDispatch** out) {
    TARVIK_TRACE("CWebBrowserHost::GetExternal");
    return CopyTo(ComPtr<IDispatch>(this), out);
}

STDMETHODIMP CWebBrowserHost::QueryService(REFGUID service, REFIID iid, void** out) {
    TARVIK_TRACE("CWebBrowserHost::QueryService");
    const IID& security = __uuidof(IInternetSecurityManager);
    if (service != security || iid != security) return CAxHostWindow::QueryService(service, iid, out);
    return out ? QueryInterface(iid, out) : E_INVALIDARG;
}

STDMETHODIMP CWebBrowserHost::QueryStatus(const GUID* group, ULONG, OLECMD*, OLECMDTEXT*) {
    TARVIK_TRACE("CWebBrowserHost::QueryStatus");
    return group ? OLECMDERR_E_UNKNOWNGROUP : OLECMDERR_E_NOTSUPPORTED;
}

STDMETHODIMP CWebBrowserHost::Exec(const GUID* group, DWORD command, DWORD, VARIANT*, VARIANT* out) {
    if (!group) return OLECMDERR_E_NOTSUPPORTED;
    if (*group == kPageCommands && command == kEndProgram) {
        EndProgram(L"The user has ended the program, because a page did not respond.");
        return S_OK;
    }
    if (*group != kDocHostCommands || command != kShowScriptError) return OLECMDERR_E_UNKNOWNGROUP;
    if (ShowsScriptErrors()) return E_NOTIMPL;
    if (out) Variant::Bool(true).MoveInto(out);  // scripts continue to run
    return S_OK;
}

// Errors are shown unless the page has set console.showJsError to false, or there is no plug-in `console`.
bool CWebBrowserHost::ShowsScriptErrors() {
    ComPtr<IDispatch> console;
    if (FAILED(GetPlugin(L"console", console.GetAddressOf()))) return false;
    const Variant shown = ReadScriptProperty(console.Get(), L"showJsError");
    return !shown.Is(VT_BOOL) || shown.boolVal != VARIANT_FALSE;
}

STDMETHODIMP CWebBrowserHost::Notify() {
    TARVIK_TRACE("CWebBrowserHost::Notify");
    return E_NOTIMPL;
}

STDMETHODIMP CWebBrowserHost::DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) {
    TARVIK_TRACE("CWebBrowserHost::DragEnter");
    if (!effect) return E_POINTER;
    *effect = DROPEFFECT_NONE;
    return S_OK;
}

STDMETHODIMP CWebBrowserHost::DragOver(DWORD, POINTL point, DWORD* effect) {
    TARVIK_TRACE("CWebBrowserHost::DragOver");
    if (!effect) return E_POINTER;
    const ComPtr<IUnknown> keepAlive(AsUnknown());  // calls into the page may destroy its window
    return Guard([&] { *effect = DropBindingAt(point) ? DROPEFFECT_COPY : DROPEFFECT_NONE; });
}

STDMETHODIMP CWebBrowserHost::DragLeave() {
    TARVIK_TRACE("CWebBrowserHost::DragLeave");
    return E_NOTIMPL;
}

STDMETHODIMP CWebBrowserHost::Drop(IDataObject* data, DWORD, POINTL point, DWORD* effect) {
    TARVIK_TRACE("CWebBrowserHost::Drop");
    if (!effect || !data) return E_POINTER;
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    return Guard([&] {
        const auto binding = DropBindingAt(point);
        if (!binding) {
            *effect = DROPEFFECT_NONE;
            return S_OK;
        }
        ComPtr<IDispatch> array;
        const ComPtr<TVK::ICore> core(plugins_.Core());
        if (!core) return E_UNEXPECTED;
        ThrowIfFailed(core->CreateScriptObject(L"array", array.GetAddressOf()));
        ThrowIfFailed(ReadDroppedFiles(data, array.Get()));
        CallDropBinding(binding.Get(), array.Get());
        return S_OK;
    });
}

ComPtr<IDispatch> CWebBrowserHost::DropBindingAt(POINTL point) {
    ComPtr<IDispatch> dragfile;
    if (FAILED(GetPlugin(L"dragfile", dragfile.GetAddressOf()))) return nullptr;
    return FindDropBinding(dragfile.Get(), Control(), Window(), point);
}

STDMETHODIMP CWebBrowserHost::SetContext(TVK::ICore* core, IUnknown* browser) {
    TARVIK_TRACE("CWebBrowserHost::SetContext");
    plugins_.SetContext(core, browser);
    return S_OK;
}

STDMETHODIMP CWebBrowserHost::Close() {
    TARVIK_TRACE("CWebBrowserHost::Close");
    plugins_.Reset();
    return S_OK;
}

STDMETHODIMP CWebBrowserHost::OnBrowserEvent(int dispatchId) {
    TARVIK_TRACE("CWebBrowserHost::OnBrowserEvent");
    (void)Guard([&] {
        if (dispatchId == kNavigateComplete2) {
            pageState_ = PageState::kNavigated;
            InjectPrologue();
            plugins_.ForEachPlugin([](TVK::IPlugin* plugin) { plugin->OnNavigateComplete(nullptr); });
        } else if (dispatchId == kDocumentComplete) {
            pageState_ = PageState::kComplete;
            plugins_.ForEachPlugin([](TVK::IPlugin* plugin) { plugin->OnDocumentComplete(nullptr); });
        }
    });
    return S_OK;
}

// If a step fails, the page has no prologue; the failure is not reported.
void CWebBrowserHost::InjectPrologue() {
    ComPtr<IDispatch> document;
    ComPtr<IHTMLWindow2> window;
    const auto browser = Query<IWebBrowser2>(Control());
    if (!browser || FAILED(browser->get_Document(document.GetAddressOf()))) return;
    const auto html = Query<IHTMLDocument2>(document.Get());
    if (!html || FAILED(html->get_parentWindow(window.GetAddressOf())) || !window) return;
    const Bstr text(kPrologue);
    Variant ignored;
    window->execScript(text.Get(), nullptr, &ignored);
}

}  // namespace tarvik
