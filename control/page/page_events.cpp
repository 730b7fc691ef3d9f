// The engine's events of a page.

#include <map>

#include "tarvik/text.h"
#include "control/engine/engine_address.h"
#include "control/page/page.h"
#include "control/page/script_dialogs.h"

namespace tarvik {

namespace {

std::wstring WideValue(const Json& object, const char* name) {
    return Widen(object.value(name, std::string()));
}

// The bridge throws the errors of native calls. Its script has no address, so the page's own line is further
// down the stack.
void FindLocation(const Json& details, ScriptError& error) {
    error.url = HostAddress(details.value("url", std::string()));
    error.line = details.value("lineNumber", 0) + 1;
    error.column = details.value("columnNumber", 0) + 1;
    const auto stack = details.find("stackTrace");
    if (!error.url.empty() || stack == details.end()) return;
    for (const Json& frame : stack->at("callFrames")) {
        const std::string url = frame.value("url", std::string());
        if (url.empty()) continue;
        error.url = HostAddress(url);
        error.line = frame.value("lineNumber", 0) + 1;
        error.column = frame.value("columnNumber", 0) + 1;
        return;
    }
}

// The description of an Error contains its text, followed by the stack.
std::wstring MessageOf(const Json& details) {
    const Json exception = details.value("exception", Json::object());
    std::string text = exception.value("description", std::string());
    if (text.empty() && exception.contains("value")) text = exception["value"].dump();
    if (text.empty()) text = details.value("text", std::string());
    if (exception.value("subtype", std::string()) == "error") text = text.substr(0, text.find("\n    at "));
    return Widen(text);
}

}  // namespace

void Page::OnEvent(std::string_view method, const Json& params) {
    static const std::map<std::string_view, Handler> kHandlers = {
        {"Fetch.requestPaused", &Page::OnRequestPaused},
        {"Page.frameNavigated", &Page::OnFrameNavigated},
        {"Page.navigatedWithinDocument", &Page::OnNavigatedWithin},
        {"Page.loadEventFired", &Page::OnLoad},
        {"Page.frameStoppedLoading", &Page::OnFrameStopped},
        {"Page.frameDetached", &Page::OnFrameDetached},
        {"Page.javascriptDialogOpening", &Page::OnEngineDialog},
        {"Page.windowOpen", &Page::OnWindowOpen},
        {"Runtime.exceptionThrown", &Page::OnException},
        {"Inspector.targetCrashed", &Page::OnCrash},
        {"Inspector.disconnected", &Page::OnEngineEnd},
    };
    view_.OnEvent(method, params);
    // Events before the end of Connect concern only the view.
    if (!events_ || !target_ || (bridge_ && bridge_->HandleEvent(method, params))) return;
    const auto found = kHandlers.find(method);
    if (found != kHandlers.end()) (this->*found->second)(params);
}

void Page::OnRequestPaused(const Json& params) {
    const bool isTop = params.value("frameId", std::string()) == target_->Id();
    const std::wstring url = HostAddress(params.at("request").value("url", std::string()));
    // A redirected request belongs to the navigation that has already been allowed.
    const bool allowed = params.contains("redirectedRequestId") || events_->OnBeforeNavigate(url, isTop);
    if (!target_) return;
    loading_ = loading_ && (allowed || !isTop);
    const Json& id = params.at("requestId");
    if (allowed)
        target_->Post("Fetch.continueRequest", {{"requestId", id}});
    else
        target_->Post("Fetch.failRequest", {{"requestId", id}, {"errorReason", "Aborted"}});
}

void Page::OnFrameNavigated(const Json& params) {
    const Json& frame = params.at("frame");
    // The engine's error page stands for the address that could not be opened.
    const std::string opened = frame.value("url", std::string()) + frame.value("urlFragment", std::string());
    const std::string url = frame.value("unreachableUrl", opened);
    const bool isTop = !frame.contains("parentId");
    if (isTop) {
        location_ = HostAddress(url);
        started_ = false;
        loading_ = true;
        frames_.clear();
    } else {
        frames_[frame.value("id", std::string())] = HostAddress(url);
        Fire(&PageEvents::OnNavigateComplete, HostAddress(url), false);
    }
}

void Page::OnNavigatedWithin(const Json& params) {
    if (params.value("frameId", std::string()) != target_->Id()) return;
    loading_ = false;
    location_ = HostAddress(params.value("url", std::string()));
}

void Page::OnLoad(const Json&) {
    const auto self = shared_from_this();
    loading_ = false;
    // A document without script has not reported its start.
    if (!std::exchange(started_, true)) Fire(&PageEvents::OnNavigateComplete, location_, true);
    Fire(&PageEvents::OnDocumentComplete, location_, true);
}

void Page::OnFrameStopped(const Json& params) {
    const std::string frame = params.value("frameId", std::string());
    if (frame == target_->Id()) loading_ = false;
    // A frame whose navigation was cancelled has no new document.
    const auto complete = frames_.extract(frame);
    if (complete) Fire(&PageEvents::OnDocumentComplete, complete.mapped(), false);
}

void Page::OnFrameDetached(const Json& params) {
    frames_.erase(params.value("frameId", std::string()));
}

Variant Page::OnDialog(const std::string& type, const std::wstring& message, const std::wstring& proposal) {
    const ScriptDialogResult result =
        ShowScriptDialog(GetAncestor(window_, GA_ROOT), {type, message, proposal});
    if (type == "alert") return Variant();
    if (type == "confirm") return Variant::Bool(result.accepted);
    return result.accepted ? Variant::Text(result.text) : Variant::Null();
}

// A dialog of the engine blocks the page until it is answered, so the page must not be called meanwhile.
void Page::OnEngineDialog(const Json& params) {
    const auto self = shared_from_this();
    const auto context = Context();
    if (context) context->SetDialogOpen(true);
    const ScriptDialog dialog = {params.value("type", std::string()), WideValue(params, "message"),
                                 WideValue(params, "defaultPrompt")};
    const ScriptDialogResult result = ShowScriptDialog(GetAncestor(window_, GA_ROOT), dialog);
    if (context) context->SetDialogOpen(false);
    if (!target_) return;
    target_->Post("Page.handleJavaScriptDialog",
                  {{"accept", result.accepted}, {"promptText", Narrow(result.text)}});
}

// Errors of a document that is being replaced are not the page's fault.
void Page::OnException(const Json& params) {
    if (const auto context = Context(); context && context->IsUnloading()) return;
    const Json& details = params.at("exceptionDetails");
    ScriptError error;
    error.message = MessageOf(details);
    FindLocation(details, error);
    Fire(&PageEvents::OnScriptError, error);
}

void Page::OnOpenWindow(const std::wstring& url) {
    Fire(&PageEvents::OnNewWindow, HostAddress(Narrow(url)));
}

void Page::OnWindowOpen(const Json& params) {
    Fire(&PageEvents::OnNewWindow, HostAddress(params.value("url", std::string())));
}

void Page::OnCrash(const Json&) {
    ShowFailure(L"This page has stopped working.");
}

void Page::OnEngineEnd(const Json&) {
    ShowFailure(L"The web engine has stopped working.");
}

}  // namespace tarvik
