// The pages of a connection's engine.

#include "control/engine/connection.h"

namespace tarvik {

namespace {

constexpr DWORD kStartPatience = 20000;

}  // namespace

void Connection::Greet() {
    Listen("", [this](std::string_view method, const Json& params) { OnBrowserEvent(method, params); });
    const Json targets = Call("", "Target.getTargets", Json::object(), kStartPatience);
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
        id = Call("", "Target.createTarget", {{"url", "about:blank"}, {"newWindow", true}}, kStartPatience)
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

// A page in which a navigation is under way may not hear it the first time, though the engine confirms it.
void Connection::ClosePage(const std::string& id) {
    pages_.erase(id);
    closing_.insert(id);
    for (const std::string& page : closing_)
        Post("", "Target.closeTarget", {{"targetId", page}}, nullptr);
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
