// The pages of a connection's engine.

#include "control/engine/connection.h"

namespace tarvik {

namespace {

constexpr DWORD kStartTimeout = 20000;
constexpr UINT kCloseAgainAfter = 500;

}  // namespace

void Connection::Handshake() {
    Listen("", [this](std::string_view method, const Json& params) { OnBrowserEvent(method, params); });
    const Json targets = Call("", "Target.getTargets", Json::object(), kStartTimeout);
    for (const Json& target : targets.at("targetInfos")) {
        if (target.value("type", "") == "page") firstPage_ = target.at("targetId");
    }
    pages_.insert(firstPage_);
    Post("", "Target.setDiscoverTargets", {{"discover", true}, {"filter", {{{"type", "page"}}}}}, nullptr);
    // Nothing asks where a download shall go.
    Post("", "Browser.setDownloadBehavior", {{"behavior", "deny"}}, nullptr);
}

// The first control takes the page that the engine started with. Later ones need windows of their own: pages
// that share one get no frames while they are behind.
std::string Connection::OpenPage() {
    if (!firstPage_.empty()) return std::exchange(firstPage_, {});
    ++opening_;
    std::string id;
    try {
        id = Call("", "Target.createTarget", {{"url", "about:blank"}, {"newWindow", true}}, kStartTimeout)
                 .at("targetId");
    } catch (...) {
        --opening_;
        throw;
    }
    --opening_;
    pages_.insert(id);
    CloseUnknown();
    return id;
}

// A page in which a navigation is under way may ignore the command, though the engine confirms it. It is sent
// again until the target has been destroyed.
void Connection::ClosePage(const std::string& id) {
    pages_.erase(id);
    closing_.insert(id);
    PostClose(id);
    SetTimer(window_.Get(), kCloseTimer, kCloseAgainAfter, nullptr);
}

void Connection::CloseAgain() {
    if (closing_.empty()) KillTimer(window_.Get(), kCloseTimer);
    const std::set<std::string> closing = closing_;  // an engine that has ended replies at once
    for (const std::string& id : closing)
        PostClose(id);
}

// The engine's error is that it has no such target.
void Connection::PostClose(const std::string& id) {
    Post("", "Target.closeTarget", {{"targetId", id}}, [this, id](const Json* result) {
        if (!result) closing_.erase(id);
    });
}

void Connection::OnBrowserEvent(std::string_view method, const Json& params) {
    if (method == "Target.targetDestroyed") closing_.erase(params.at("targetId").get<std::string>());
    if (method != "Target.targetCreated") return;
    unknown_.insert(params.at("targetInfo").at("targetId").get<std::string>());
    CloseUnknown();
}

void Connection::CloseUnknown() {
    if (opening_ > 0) return;
    for (const std::string& id : std::exchange(unknown_, {})) {
        if (!pages_.contains(id)) ClosePage(id);
    }
}

}  // namespace tarvik
