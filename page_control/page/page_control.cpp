#include "page_control/page/page_control.h"

#include <exdispid.h>
#include <mshtmdid.h>
#include <urlmon.h>

#include "base/document_host.h"
#include "base/html_element.h"
#include "page_control/page/frame_browser.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/status.h"
#include "tarvik/text.h"
#include "tarvik/variant.h"

namespace tarvik {

namespace {

constexpr UINT kReportInterval = 15;  // milliseconds
constexpr size_t kMaxErrors = 8;

VARIANT ByReference(VARIANT* value) {
    VARIANT reference = {};
    reference.vt = VT_VARIANT | VT_BYREF;
    reference.pvarVal = value;
    return reference;
}

VARIANT ByReference(VARIANT_BOOL* value) {
    VARIANT reference = {};
    reference.vt = VT_BOOL | VT_BYREF;
    reference.pboolVal = value;
    return reference;
}

// The control's own dialog, for a site that does not handle script errors. True if scripts may continue.
bool ConfirmContinue(HWND owner, const ScriptError& error) {
    const std::wstring text = L"A script on this page has failed.\n\nLine:\t" + DecimalText(error.line) +
                              L"\nChar:\t" + DecimalText(error.column) + L"\nError:\t" + error.message +
                              L"\nURL:\t" + error.url + L"\n\nContinue running scripts on this page?";
    return MessageBoxW(owner, text.c_str(), L"Script error", MB_YESNO | MB_ICONWARNING) != IDNO;
}

}  // namespace

PageControl::PageControl(std::shared_ptr<SharedEngine> engine)
    : engine_(std::move(engine)), events_(MakeCom<ConnectionPoint>(DIID_DWebBrowserEvents2, this)) {}

PageControl::~PageControl() {
    if (windows_) SetWindowLongPtrW(windows_->Server(), GWLP_USERDATA, 0);
    if (page_) page_->Close();
    events_->Close();
}

Variant PageControl::BrowserOf(bool isTop, const std::wstring& url) {
    if (isTop) return Variant::Object(static_cast<IWebBrowser2*>(this));
    return Variant::Object(MakeCom<FrameBrowser>(url).Get());
}

// BeforeNavigate2(browser, url, flags, frame, post data, headers, cancel)
bool PageControl::OnBeforeNavigate(const std::wstring& url, bool isTop) {
    Variant address = Variant::Text(url), flags = Variant::I4(0), empty;
    Variant frame = Variant::Text(L"");
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant browser = BrowserOf(isTop, std::wstring());
    VARIANT arguments[] = {browser,
                           ByReference(&address),
                           ByReference(&flags),
                           ByReference(&frame),
                           ByReference(&empty),
                           ByReference(&empty),
                           ByReference(&cancel)};
    events_->Fire(DISPID_BEFORENAVIGATE2, arguments);
    if (cancel != VARIANT_FALSE) return false;
    if (isTop && page_) page_->AllowScript(AllowsScript(url));
    return true;
}

// Whether the site's security manager, if any, lets a page run script.
bool PageControl::AllowsScript(const std::wstring& url) {
    ComPtr<IInternetSecurityManager> manager;
    const auto services = Query<IServiceProvider>(site_.Get());
    const IID& id = __uuidof(IInternetSecurityManager);
    if (!services || FAILED(services->QueryService(id, id, reinterpret_cast<void**>(manager.GetAddressOf()))))
        return true;
    DWORD zone = URLZONE_INTERNET, policy = URLPOLICY_ALLOW;
    manager->MapUrlToZone(url.c_str(), &zone, 0);
    const HRESULT status =
        manager->ProcessUrlAction(url.c_str(), URLACTION_SCRIPT_RUN, reinterpret_cast<BYTE*>(&policy),
                                  sizeof policy, nullptr, 0, PUAF_NOUI, 0);
    return FAILED(status) || policy == URLPOLICY_ALLOW;
}

// NavigateComplete2(browser, url)
void PageControl::OnNavigateComplete(const std::wstring& url, bool isTop) {
    if (isTop) mouse_->Clear();  // connections end with the document
    Variant address = Variant::Text(url);
    Variant browser = BrowserOf(isTop, url);
    VARIANT arguments[] = {browser, ByReference(&address)};
    events_->Fire(DISPID_NAVIGATECOMPLETE2, arguments);
}

// DocumentComplete(browser, url)
void PageControl::OnDocumentComplete(const std::wstring& url, bool isTop) {
    Variant address = Variant::Text(url);
    Variant browser = BrowserOf(isTop, url);
    VARIANT arguments[] = {browser, ByReference(&address)};
    events_->Fire(DISPID_DOCUMENTCOMPLETE, arguments);
}

// NewWindow3(object, cancel, flags, the opener's address, address). No browser is returned to the engine.
void PageControl::OnNewWindow(const std::wstring& url) {
    VARIANT_BOOL cancel = VARIANT_FALSE;
    ComPtr<IDispatch> object;
    VARIANT objectReference = {};
    objectReference.vt = VT_DISPATCH | VT_BYREF;
    objectReference.ppdispVal = object.GetAddressOf();
    Variant flags = Variant::I4(0), opener = Variant::Text(page_ ? page_->Location() : std::wstring());
    Variant address = Variant::Text(url);
    VARIANT arguments[] = {objectReference, ByReference(&cancel), flags, opener, address};
    events_->Fire(DISPID_NEWWINDOW3, arguments);
}

// WindowClosing(is child, cancel)
void PageControl::OnWindowClosing() {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    VARIANT_BOOL cancel = VARIANT_FALSE;
    Variant isChild = Variant::Bool(false);
    VARIANT arguments[] = {isChild, ByReference(&cancel)};
    events_->Fire(DISPID_WINDOWCLOSING, arguments);
    if (cancel == VARIANT_FALSE && windows_)
        PostMessageW(GetAncestor(windows_->Outer(), GA_ROOT), WM_CLOSE, 0, 0);
}

// Errors are reported from the message loop while no native code waits for a page: the site may open a
// dialog, which would hold up calls in progress and the tasks that made them.
void PageControl::OnScriptError(const ScriptError& error) {
    // The dialogs of a page that fails all the time would never end.
    if (!windows_ || errors_.size() >= kMaxErrors) return;
    errors_.push_back(error);
    SetTimer(windows_->Server(), kErrorTimer, kReportInterval, nullptr);
}

void PageControl::ReportErrors() {
    if (reporting_ || (page_ && page_->IsEngineAwaited())) return;
    KillTimer(windows_->Server(), kErrorTimer);
    reporting_ = true;
    while (!errors_.empty()) {
        const ScriptError error = std::move(errors_.front());
        errors_.pop_front();
        Variant document = Variant::Unknown(document_ ? document_->AsUnknown() : nullptr);
        Variant mayContinue = Variant::Bool(true);
        const auto site = Query<IOleCommandTarget>(site_.Get());
        const HRESULT status =
            site ? site->Exec(&kDocHostCommands, kShowScriptError, 0, &document, &mayContinue) : E_NOTIMPL;
        if (!windows_) break;
        if (FAILED(status))
            mayContinue = Variant::Bool(ConfirmContinue(GetAncestor(windows_->Outer(), GA_ROOT), error));
        if (mayContinue.Is(VT_BOOL) && mayContinue.boolVal) continue;
        errors_.clear();
        if (page_) page_->AllowScript(false);
    }
    reporting_ = false;
}

void PageControl::OnContextMenu(POINT screen, IDispatch* script) {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    const auto handler = Query<IDocHostUIHandler>(site_.Get());
    const auto element = ElementFor(script);
    POINT point = screen;
    auto* const object = static_cast<IHTMLElement*>(element.Get());
    const DWORD menu = IsTextField(object) ? CONTEXT_MENU_CONTROL : CONTEXT_MENU_DEFAULT;
    const HRESULT status = handler ? handler->ShowContextMenu(menu, &point, nullptr, object) : S_FALSE;
    if (status != S_OK && page_) page_->OpenEditMenu(point);
}

ComPtr<HtmlElement> PageControl::ElementFor(IDispatch* script) {
    return script && page_ ? MakeCom<HtmlElement>(page_, ComPtr<IDispatch>(script), mouse_) : nullptr;
}

void PageControl::OnMouseDown() {
    mouse_->Fire(DISPID_HTMLELEMENTEVENTS2_ONMOUSEDOWN);
}

// The host decides how the program ends. A site that does not take the command closes the window.
void PageControl::OnEndProgram() {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    const auto site = Query<IOleCommandTarget>(site_.Get());
    if (site &&
        SUCCEEDED(site->Exec(&kPageCommands, kEndProgram, OLECMDEXECOPT_DONTPROMPTUSER, nullptr, nullptr)))
        return;
    if (windows_) PostMessageW(GetAncestor(windows_->Outer(), GA_ROOT), WM_CLOSE, 0, 0);
}

ComPtr<IDispatch> PageControl::GetExternal() {
    ComPtr<IDispatch> external;
    if (const auto handler = Query<IDocHostUIHandler>(site_.Get()))
        handler->GetExternal(external.GetAddressOf());
    return external;
}

bool PageControl::HandlePageMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const ComPtr<IUnknown> keepAlive(AsUnknown());
    const auto page = page_;
    bool handled = false;
    const HRESULT status = Guard([&] {
        // The container routes keys through the control that is UI-active.
        if (message == WM_SETFOCUS) ActivateUi();
        if (message == WM_TIMER && wParam == kErrorTimer) {
            ReportErrors();
            handled = true;
        } else if (page) {
            handled = page->HandleMessage(message, wParam, lParam, result);
        }
    });
    return SUCCEEDED(status) && handled;
}

}  // namespace tarvik
