#include "host/web_browser.h"

#include <docobj.h>
#include <exdispid.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlwapi.h>
#include <urlmon.h>

#include "app/log/error_report.h"
#include "app/log/log.h"
#include "atl/ax_window.h"
#include "base/dpi.h"
#include "base/module_function.h"
#include "base/path.h"
#include "base/running.h"
#include "host/browser_host.h"
#include "host/hosted_browser.h"
#include "host/page_address.h"
#include "host/program_end.h"
#include "script/object.h"
#include "tarvik/bstr.h"
#include "tarvik/properties.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

constexpr const wchar_t* kWindowClass = L"TarvikBrowserWindow";
constexpr WORD kIcon = 1000;

int pagesOpen = 0;  // windows with a page; main thread

// Turns off the clicking sound of navigation. Older versions of Windows lack the function.
void SilenceNavigation() {
    using SetFeature = HRESULT WINAPI(INTERNETFEATURELIST, DWORD, BOOL);
    auto* const set = FindFunction<SetFeature>(L"Urlmon.dll", "CoInternetSetFeatureEnabled");
    if (set) set(FEATURE_DISABLE_NAVIGATION_SOUNDS, SET_FEATURE_ON_PROCESS, TRUE);
}

std::wstring MissingPageMessage(const std::wstring& page) {
    const std::wstring reason = page.empty()
                                    ? L"A relative URL is resolved only on pages loaded from file: URLs."
                                    : L"The page \"" + FullPath(page) + L"\" does not exist.";
    return reason + L" No window was opened.";
}

}  // namespace

HWND CWebBrowser::CreateHidden(HWND parent, const wchar_t* page) {
    AtlAxWinInit();
    const Bstr parameter = page ? Bstr(page) : Bstr();
    return Create(kWindowClass, kAxWindowClass, parent, nullptr, WS_OVERLAPPEDWINDOW, parameter.Get());
}

bool CWebBrowser::ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    switch (message) {
        case WM_NCCREATE:
            AddRef();  // the window's reference; OnFinalMessage releases it
            return false;
        case WM_CREATE:
            result = OnCreate(static_cast<const wchar_t*>(creation->lpCreateParams));
            return true;
        case WM_SYSCOMMAND:
            // By now onClose has agreed. The low bits belong to the system.
            result = 0;
            return (wParam & 0xFFF0) == SC_CLOSE && !MayUnload();
        case WM_DPICHANGED:
            OnDpiChange(*reinterpret_cast<const RECT*>(lParam));
            result = 0;
            return true;
        case WM_DESTROY:
            OnDestroy();
            result = 0;
            return true;
        default:
            return false;
    }
}

LRESULT CWebBrowser::OnCreate(const wchar_t* requested) {
    OleInitialize(nullptr);  // for every window, and never uninitialized
    const HICON icon = LoadIconW(appModule.Instance(), MAKEINTRESOURCEW(kIcon));
    SendMessageW(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
    // Without a page no script could ever show this hidden window.
    if (FAILED(Guard([&] { return OpenPage(requested); }))) DestroyWindow(Window());
    return 0;
}

HRESULT CWebBrowser::OpenPage(const wchar_t* requested) {
    const std::wstring page = ChoosePage(requested);
    const std::wstring address = PageAddress(page);
    if (address.empty()) {
        TARVIK_ERROR("CWebBrowser::OnCreate", L"not found index.html");
        ReportError(MissingPageMessage(page));
        return HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
    }
    if (const HRESULT status = CreateControl(address); FAILED(status)) return status;
    if (CMessageLoop* loop = appModule.GetMessageLoop()) loop->AddMessageFilter(this);
    return S_OK;
}

HRESULT CWebBrowser::CreateControl(const std::wstring& page) {
    const auto site = MakeCom<CWebBrowserHost>();
    // Set before the control is created, because its first events may come during its creation.
    host_ = site;
    site->SetContext(this, nullptr);
    hostWindow_ = Query<IAxWinHostWindow>(site->AsUnknown());
    ++pagesOpen;
    sink_ = MakeCom<EventSink<CWebBrowser>>(this, DIID_DWebBrowserEvents2);
    ComPtr<IUnknown> control;
    const HRESULT status = site->CreateControlLicEx(page.c_str(), Window(), nullptr, control.GetAddressOf(),
                                                    DIID_DWebBrowserEvents2, sink_.Get(), nullptr);
    const auto browser = Query<IWebBrowser2>(control.Get());
    if (FAILED(status) || !browser) return FAILED(status) ? status : E_NOINTERFACE;
    browser->put_RegisterAsBrowser(VARIANT_TRUE);
    SilenceNavigation();
    // The page may have closed the window by now.
    return host_ ? host_->SetContext(this, browser.Get()) : E_ABORT;
}

// Asks the user, if the page's `beforeunload` handlers want that.
bool CWebBrowser::MayUnload() {
    const ComPtr<TVK::ICore> keepAlive(this);
    const auto commands = Query<IOleCommandTarget>(DocumentIn(Window()).Get());
    Variant result;
    return !commands ||
           FAILED(commands->Exec(nullptr, OLECMDID_ONUNLOAD, OLECMDEXECOPT_DODEFAULT, nullptr,
                                 result.Receive())) ||
           !result.Is(VT_BOOL) || result.boolVal != VARIANT_FALSE;
}

// The system proposes a place of the same physical size.
void CWebBrowser::OnDpiChange(const RECT& place) {
    SetWindowPos(Window(), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    ZoomPage();
}

// The system's control does not scale pages by itself. The page control does, and has no such command.
void CWebBrowser::ZoomPage() {
    const auto browser = BrowserIn(Window());
    Variant percent = Variant::I4(MulDiv(100, static_cast<int>(DpiOf(Window())), USER_DEFAULT_SCREEN_DPI));
    if (browser) browser->ExecWB(OLECMDID_OPTICAL_ZOOM, OLECMDEXECOPT_DONTPROMPTUSER, &percent, nullptr);
}

// A page that cannot run script can never call `quit`. Without another page the program would run for ever.
void CWebBrowser::OnDestroy() {
    if (hostWindow_) {
        const bool endsProgram = pagesOpen == 1 && !IsRunning(AtlAxGetControl(Window()).Get());
        if (--pagesOpen == 0 && endsProgram)
            EndProgram(L"The page of the last window could not run script, so the program ends.");
        host_->Close();
        host_.Reset();
        hostWindow_.Reset();
    }
    if (sink_) sink_->Detach();
    if (CMessageLoop* loop = appModule.GetMessageLoop()) loop->RemoveMessageFilter(this);
}

bool CWebBrowser::PreTranslateMessage(MSG* message) {
    const auto control = AtlAxGetControl(Window());
    const auto active = Query<IOleInPlaceActiveObject>(control.Get());
    return active && active->TranslateAccelerator(message) == S_OK;
}

void CWebBrowser::OnEvent(DISPID id, const DISPPARAMS& parameters) {
    const ComPtr<IWebbrowserHost> host = host_;
    switch (id) {
        case DISPID_NAVIGATECOMPLETE2:
            if (host) host->OnBrowserEvent(id);
            break;
        case DISPID_DOCUMENTCOMPLETE:
            TARVIK_TRACE("CWebBrowser::OnDocumentComplete");
            if (DpiOf(Window()) != USER_DEFAULT_SCREEN_DPI) ZoomPage();
            if (host) host->OnBrowserEvent(id);
            break;
        case DISPID_WINDOWCLOSING:
            TARVIK_TRACE("CWebBrowser::OnWindowClosing");
            break;
        case DISPID_NEWWINDOW3:
            OnNewWindow(parameters);
            break;
        default:
            break;
    }
}

// Cancels the engine's new window; the system opens the address instead. rgvarg[0] is the address, rgvarg[3]
// the cancel flag.
void CWebBrowser::OnNewWindow(const DISPPARAMS& parameters) {
    TARVIK_TRACE("CWebBrowser::OnNewWindow3");
    if (parameters.cArgs < 5) return;
    const VARIANT& cancel = parameters.rgvarg[3];
    const VARIANT& url = parameters.rgvarg[0];
    if (cancel.vt == (VT_BOOL | VT_BYREF)) *cancel.pboolVal = VARIANT_TRUE;
    if (url.vt == VT_BSTR) ShellExecuteW(nullptr, nullptr, url.bstrVal, nullptr, nullptr, SW_SHOW);
}

}  // namespace tarvik
