#include "base/wine.h"
#include "page_control/engine/devtools.h"

namespace tarvik {

namespace {

// The engine's own identity, without the word for an engine that has no windows. Its brands stay, because
// none are given.
Json Identity(std::string userAgent) {
    constexpr std::string_view kHeadless = "Headless";
    for (size_t at; (at = userAgent.find(kHeadless)) != std::string::npos;)
        userAgent.erase(at, kHeadless.size());
    return {{"userAgent", userAgent},
            {"userAgentMetadata",
             {{"platform", IsWine() ? "Linux" : "Windows"},
              {"platformVersion", ""},
              {"architecture", "x86"},
              {"bitness", "64"},
              {"model", ""},
              {"mobile", false}}}};
}

Json AttachParameters(const std::string& id) {
    return {{"targetId", id}, {"flatten", true}};
}

}  // namespace

std::string AttachSession(DevTools& engine, const std::string& targetId) {
    return engine.Call("", "Target.attachToTarget", AttachParameters(targetId)).at("sessionId");
}

PageTarget::PageTarget(std::shared_ptr<DevTools> devtools) : devtools_(std::move(devtools)) {
    id_ = devtools_->OpenPage();
    try {
        session_ = AttachSession(*devtools_, id_);
        Post("Emulation.setUserAgentOverride", Identity(devtools_->UserAgent()));
    } catch (...) {
        devtools_->ClosePage(id_);
        throw;
    }
    Listen();
}

PageTarget::PageTarget(std::shared_ptr<DevTools> devtools, std::string id, std::string session)
    : devtools_(std::move(devtools)), id_(std::move(id)), session_(std::move(session)) {
    Listen();
}

void PageTarget::Open(std::shared_ptr<DevTools> devtools,
                      std::function<void(std::unique_ptr<PageTarget> target)> handler) {
    DevTools& engine = *devtools;
    engine.OpenPage([devtools = std::move(devtools), handler = std::move(handler)](const std::string& id) {
        if (id.empty()) return handler(nullptr);
        devtools->Post("", "Target.attachToTarget", AttachParameters(id),
                       [devtools, handler, id](const Json* result) {
                           if (!result) devtools->ClosePage(id);
                           handler(std::unique_ptr<PageTarget>(
                               result ? new PageTarget(devtools, id, result->at("sessionId")) : nullptr));
                       });
    });
}

void PageTarget::Listen() {
    devtools_->Listen(session_, [events = events_](std::string_view method, const Json& params) {
        events->Dispatch(method, params);
    });
}

PageTarget::~PageTarget() {
    devtools_->Listen(session_, nullptr);
    devtools_->ListenToFrames(session_, nullptr);
    // A page that is paused by the debugger would not close.
    devtools_->Post("", "Target.detachFromTarget", {{"sessionId", session_}});
    devtools_->ClosePage(id_);
}

}  // namespace tarvik
