#include "page_control/page/page.h"

#include <map>

#include "page_control/bridge/script_source.h"
#include "page_control/clipboard/engine_clipboard.h"
#include "page_control/engine/engine_address.h"
#include "page_control/view/window_numbers.h"
#include "tarvik/status.h"

namespace tarvik {

namespace {

constexpr DWORD kUnloadTimeout = 2000;  // for a page that does not respond

// Documents, and what scripts request from the web: if a server requires a password, the engine would wait
// for ever for a dialog of its own.
void InterceptRequests(PageTarget& target) {
    const auto pattern = [](const char* url, const char* type) {
        return Json{{"urlPattern", url}, {"resourceType", type}};
    };
    target.Post("Fetch.enable",
                {{"patterns", {pattern("*", "Document"), pattern("http*", "XHR"), pattern("http*", "Fetch")}},
                 {"handleAuthRequests", true}});
}

}  // namespace

Page::Page(std::shared_ptr<SharedEngine> engine, HWND window, PageEvents& events, bool textIsSelectable)
    : engine_(std::move(engine)),
      window_(window),
      events_(&events),
      view_(window, {textIsSelectable, [this](const std::wstring& url) { OnOpenWindow(url); },
                     [this](const Json& field, auto onChoice) {
                         if (dialogs_) dialogs_->ChooseValue(field, std::move(onChoice));
                     }}) {}

void Page::Navigate(const std::wstring& destination) {
    requested_ = destination;
    if (!target_ && !Connect()) return;
    loading_ = true;
    const std::string address = EngineAddress(requested_);
    // The pages that the site navigates to are the application's own.
    AllowClipboard(target_->Engine(), OriginOf(address));
    target_->Post("Page.navigate", {{"url", address}});
}

std::wstring Page::LocationOrDestination() const {
    return location_.empty() && !requested_.empty() ? HostAddress(EngineAddress(requested_)) : location_;
}

// Starts the engine if none is running, and opens a target in it. Each step waits; meanwhile the page may be
// closed or navigated elsewhere.
bool Page::Connect() {
    if (std::exchange(connecting_, true)) return false;
    const auto self = shared_from_this();
    std::shared_ptr<PageTarget> target;
    std::unique_ptr<ScriptBridge> bridge;
    const auto requireOpen = [this] {
        if (!events_) throw StatusError(E_ABORT);
    };
    try {
        target = std::make_shared<PageTarget>(engine_->Acquire());
        requireOpen();
        target->Events().RetainDuringDispatch(weak_from_this());
        target->Post("Page.enable");
        target->Post("Inspector.enable");
        InterceptRequests(*target);
        view_.SetTarget(target);
        requireOpen();
        bridge = std::make_unique<ScriptBridge>(*target, *this);
        requireOpen();
        SubscribeAll(*target);
        dialogs_ = std::make_unique<PageDialogs>(
            window_, *target, [this](std::function<void()> task) { view_.WhenActive(std::move(task)); },
            [engine = engine_](const std::wstring& text) { engine->Report(text); });
        target_ = std::move(target);
        monitor_ = std::make_unique<ResponseMonitor>(window_, *target_,
                                                     [this](bool responds) { OnResponse(responds); });
        bridge_ = std::move(bridge);
        failed_ = false;
        isBlank_ = true;
        scriptAllowed_ = true;
    } catch (const std::exception&) {
        dialogs_.reset();
        bridge.reset();
        view_.SetTarget(nullptr);
        target.reset();
        const std::wstring& reason = engine_->LastStartError();
        if (events_) ShowFailure(reason.empty() ? L"The page could not be opened." : reason);
    }
    connecting_ = false;
    return target_ != nullptr;
}

void Page::ShowFailure(const std::wstring& text) {
    failed_ = true;
    loading_ = false;
    monitor_.reset();
    dialogs_.reset();
    bridge_.reset();
    view_.SetTarget(nullptr);
    ShowNotice(text, [this] { Reload(); });
    target_.reset();
}

void Page::ShowNotice(const std::wstring& text, std::function<void()> loadAgain) {
    view_.GetNotice().Show(text, {{L"Load again", std::move(loadAgain)}});
    // Without a page, nothing else would show the window.
    const HWND root = GetAncestor(window_, GA_ROOT);
    if (!IsWindowVisible(root)) ShowWindow(root, SW_SHOWNORMAL);
}

void Page::ShowEmptyPage(bool isError) {
    if (isError) return ShowNotice(L"The page could not be loaded:\n" + location_, [this] { Reload(); });
    ShowNotice(L"This page is blank.", [this] { Navigate(requested_); });
}

void Page::OnResponse(bool responds) {
    Notice& notice = view_.GetNotice();
    if (responds) return notice.Hide();
    notice.Show(L"This page does not respond.",
                {{L"Wait",
                  [this] {
                      view_.GetNotice().Hide();
                      monitor_->Restart();
                  }},
                 {L"Stop the page", [this] { ShowFailure(L"You have stopped this page."); }},
                 {L"End the program", [this] { Fire(&PageEvents::OnEndProgram); }}});
}

// The engine runs the handlers of all frames before it requests the document of a navigation. That request is
// cancelled, so the page lives on until its window is destroyed. A page that does not respond may be closed.
bool Page::MayUnload() {
    const auto self = shared_from_this();
    if (!target_ || location_.empty() || !monitor_->IsResponding()) return true;
    if (std::exchange(asksToUnload_, true)) return false;
    mayUnload_.reset();
    (void)Guard([&] { target_->Call("Page.navigate", {{"url", kUnloadAddress}}, kUnloadTimeout); });
    asksToUnload_ = false;
    return mayUnload_.value_or(true);
}

bool Page::CanRunScript() {
    const auto self = shared_from_this();
    return Context() && !isEmpty_ && (hasCalled_ || !loading_) && monitor_->Responds();
}

void Page::Close() {
    const auto self = shared_from_this();
    events_ = nullptr;
    monitor_.reset();
    dialogs_.reset();
    bridge_.reset();
    view_.SetTarget(nullptr);
    target_.reset();
}

void Page::Reload() {
    if (failed_) return Navigate(location_.empty() ? requested_ : location_);
    if (target_) target_->Post("Page.reload");
}

void Page::Stop() {
    if (target_) target_->Post("Page.stopLoading");
}

void Page::GoInHistory(int steps) {
    if (!target_) return;
    target_->Post("Page.getNavigationHistory", {}, [weak = weak_from_this(), steps](const Json* history) {
        const auto page = weak.lock();
        if (!history || !page || !page->target_) return;
        const int index = history->value("currentIndex", 0) + steps;
        const Json& entries = history->at("entries");
        if (index < 0 || index >= static_cast<int>(entries.size())) return;
        page->target_->Post("Page.navigateToHistoryEntry", {{"entryId", entries[index].at("id")}});
    });
}

ComPtr<IDispatch> Page::Globals() {
    if (const auto context = Context()) return context->Window();
    return staged_;
}

void Page::ListenToMouse() {
    if (const auto context = Context()) context->ListenToMouse();
}

void Page::OpenEditMenu(POINT screen) {
    view_.OpenEditMenu(screen);
}

void Page::AllowScript(bool allowed) {
    if (!target_ || std::exchange(scriptAllowed_, allowed) == allowed) return;
    target_->Post("Emulation.setScriptExecutionDisabled", {{"value", !allowed}});
}

bool Page::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const auto self = shared_from_this();
    if (monitor_ && message == WM_TIMER && wParam == kResponseTimer) {
        monitor_->OnTimer();
        return true;
    }
    return view_.HandleMessage(message, wParam, lParam, result);
}

// The document's first script waits until this returns, so it finds everything that native code writes now.
void Page::OnDocumentStart() {
    const auto self = shared_from_this();
    const auto context = Context();
    if (!events_ || !context) return;
    started_ = true;
    context->SetExternal(events_->GetExternal().Get());
    ApplyStagedGlobals(*context);
    Fire(&PageEvents::OnNavigateComplete, location_, true);
    hasCalled_ = false;  // the host's script has
}

void Page::ApplyStagedGlobals(ScriptContext& context) {
    for (const auto& [name, value] : staged_->Take()) {
        context.Run({.name = "set", .member = ScriptText(name), .arguments = context.Write(value)});
    }
}

}  // namespace tarvik
