// The engine's events of a page.

#include <utility>

#include "page_control/engine/engine_address.h"
#include "page_control/page/page.h"
#include "page_control/page/script_dialogs.h"
#include "page_control/printing/print_page.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

constexpr int kHistoryAttempts = 100;
constexpr const char* kBlankAddress = "about:blank";

}  // namespace

template <class Event>
EventRouter::Subscription Page::Subscribe(PageTarget& target, void (Page::*handler)(const Event& event)) {
    return target.Events().Subscribe<Event>([weak = weak_from_this(), handler](const Event& event) {
        const auto page = weak.lock();
        if (page && page->events_ && page->target_) (page.get()->*handler)(event);
    });
}

void Page::SubscribeAll(PageTarget& target) {
    subscriptions_ = {
        Subscribe(target, &Page::OnRequestPaused),   Subscribe(target, &Page::OnFrameNavigated),
        Subscribe(target, &Page::OnNavigatedWithin), Subscribe(target, &Page::OnLoad),
        Subscribe(target, &Page::OnFrameStopped),    Subscribe(target, &Page::OnFrameDetached),
        Subscribe(target, &Page::OnEngineDialog),    Subscribe(target, &Page::OnWindowOpen),
        Subscribe(target, &Page::OnException),       Subscribe(target, &Page::OnCrash),
        Subscribe(target, &Page::OnEngineEnd),
    };
}

void Page::OnRequestPaused(const event::RequestPaused& request) {
    if (!request.isDocument) return ContinueRequest(request);
    if (asksToUnload_ && request.url == kUnloadAddress) {
        if (!mayUnload_) mayUnload_ = true;
        return FailRequest(request);
    }
    const bool isTop = request.frameId == target_->Id();
    const std::wstring url = HostAddress(request.url);
    // A redirected request belongs to the navigation that has already been allowed.
    const bool allowed = request.isRedirected || events_->OnBeforeNavigate(url, isTop);
    if (!target_) return;
    loading_ = loading_ && (allowed || !isTop);
    allowed ? ContinueRequest(request) : FailRequest(request);
}

void Page::ContinueRequest(const event::RequestPaused& request) {
    target_->Post("Fetch.continueRequest", {{"requestId", request.requestId}});
}

void Page::FailRequest(const event::RequestPaused& request) {
    target_->Post("Fetch.failRequest", {{"requestId", request.requestId}, {"errorReason", "Aborted"}});
}

void Page::OnFrameNavigated(const event::FrameNavigated& navigated) {
    const std::wstring url = HostAddress(navigated.url);
    if (navigated.isTop) {
        location_ = url;
        started_ = false;
        loading_ = true;
        hasCalled_ = false;
        frames_.clear();
        monitor_->Restart();
        isEmpty_ = navigated.isError || navigated.url.starts_with(kBlankAddress);
        if (isEmpty_)
            ShowEmptyPage(navigated.isError);
        else
            view_.GetNotice().Hide();
        if (std::exchange(isBlank_, false)) RemoveBlankPageFromHistory(kHistoryAttempts);
    } else {
        frames_[navigated.frameId] = url;
        Fire(&PageEvents::OnNavigateComplete, url, false);
    }
}

// The blank page that every target starts with is not part of the user's history. The command fails while the
// engine has not yet replaced that page.
void Page::RemoveBlankPageFromHistory(int attempts) {
    target_->Post("Page.resetNavigationHistory", {}, [weak = weak_from_this(), attempts](const Json* result) {
        const auto page = weak.lock();
        if (!result && attempts > 1 && page && page->target_ && page->target_->Engine().IsOpen())
            page->RemoveBlankPageFromHistory(attempts - 1);
    });
}

void Page::OnNavigatedWithin(const event::NavigatedWithinDocument& navigated) {
    if (navigated.frameId != target_->Id()) return;
    loading_ = false;
    location_ = HostAddress(navigated.url);
}

void Page::OnLoad(const event::LoadEventFired&) {
    loading_ = false;
    // A document without script has not reported its start.
    if (!std::exchange(started_, true)) Fire(&PageEvents::OnNavigateComplete, location_, true);
    Fire(&PageEvents::OnDocumentComplete, location_, true);
}

void Page::OnFrameStopped(const event::FrameStoppedLoading& stopped) {
    if (stopped.frameId == target_->Id()) loading_ = false;
    // A frame whose navigation was cancelled has no new document.
    const auto complete = frames_.extract(stopped.frameId);
    if (complete) Fire(&PageEvents::OnDocumentComplete, complete.mapped(), false);
}

void Page::OnFrameDetached(const event::FrameDetached& detached) {
    frames_.erase(detached.frameId);
}

Variant Page::OnDialog(const std::string& type, const std::wstring& message, const std::wstring& proposal) {
    if (type == "print") {
        Print(message);
        return Variant();
    }
    const ScriptDialogResult result =
        ShowScriptDialog(GetAncestor(window_, GA_ROOT), {type, message, proposal});
    if (type == "alert") return Variant();
    if (type == "confirm") return Variant::Bool(result.accepted);
    return result.accepted ? Variant::Text(result.text) : Variant::Null();
}

// A page is printed while it waits for its call, so that script finds no other state before or after.
void Page::Print(const std::wstring& title) {
    if (!target_ || std::exchange(printing_, true)) return;
    const auto self = shared_from_this();
    monitor_->SetDialogOpen(true);  // the layout of a long document takes its time
    PrintPage(GetAncestor(window_, GA_ROOT), *target_, title);
    printing_ = false;
    if (target_) monitor_->SetDialogOpen(false);
}

// A dialog of the engine blocks the page until it is answered, so the page must not be called meanwhile.
void Page::OnEngineDialog(const event::DialogOpening& opening) {
    const auto context = Context();
    if (context) context->SetDialogOpen(true);
    monitor_->SetDialogOpen(true);
    const ScriptDialog dialog = {opening.type, Widen(opening.message), Widen(opening.defaultPrompt)};
    const ScriptDialogResult result = ShowScriptDialog(GetAncestor(window_, GA_ROOT), dialog);
    if (context) context->SetDialogOpen(false);
    if (!target_) return;
    monitor_->SetDialogOpen(false);
    if (asksToUnload_ && opening.type == "beforeunload") mayUnload_ = result.accepted;
    target_->Post("Page.handleJavaScriptDialog",
                  {{"accept", result.accepted}, {"promptText", Narrow(result.text)}});
}

// Errors of a document that is being replaced are not the page's fault.
void Page::OnException(const event::ExceptionThrown& exception) {
    if (const auto context = Context(); context && context->IsUnloading()) return;
    const ScriptError error = {Widen(exception.message), HostAddress(exception.url), exception.line,
                               exception.column};
    Fire(&PageEvents::OnScriptError, error);
}

void Page::OnOpenWindow(const std::wstring& url) {
    Fire(&PageEvents::OnNewWindow, HostAddress(Narrow(url)));
}

void Page::OnWindowOpen(const event::WindowOpen& open) {
    Fire(&PageEvents::OnNewWindow, HostAddress(open.url));
}

void Page::OnCrash(const event::TargetCrashed&) {
    ShowFailure(L"This page has stopped working.");
}

void Page::OnEngineEnd(const event::Disconnected&) {
    ShowFailure(L"The web engine has stopped working.");
}

}  // namespace tarvik
