#include "page_control/bridge/script_bridge.h"

namespace tarvik {

namespace {

// Every evaluation is a script. Without a limit the engine would keep the source of each.
PageTarget& EnableDebugger(PageTarget& target) {
    target.Post("Debugger.enable", {{"maxScriptsCacheSize", 0}});
    return target;
}

}  // namespace

ScriptBridge::ScriptBridge(PageTarget& target, ScriptContextDelegate& delegate)
    : target_(EnableDebugger(target)),
      delegate_(delegate),
      script_(target, kBridgeScript, Json::object(),
              [this](const std::string& payload, int contextId) { OnPost(payload, contextId); }) {
    EventRouter& events = target_.Events();
    subscriptions_ = {
        events.Subscribe<event::Paused>([this](const auto&) {
            if (context_) return context_->OnPaused();
            target_.Post("Debugger.resume");  // at a statement of the page itself
        }),
        events.Subscribe<event::Resumed>([this](const auto&) {
            if (context_) context_->OnResumed();
        }),
        events.Subscribe<event::ContextsCleared>([this](const auto&) { End(); }),
        events.Subscribe<event::ContextDestroyed>([this](const event::ContextDestroyed& destroyed) {
            if (context_ && destroyed.contextId == context_->ContextId()) End();
        }),
    };
}

ScriptBridge::~ScriptBridge() {
    End();
}

std::shared_ptr<ScriptContext> ScriptBridge::Context() const {
    return context_ && context_->IsAlive() ? context_ : nullptr;
}

void ScriptBridge::End() {
    if (const auto context = std::move(context_)) context->End();
}

void ScriptBridge::OnPost(std::string_view payload, int contextId) {
    constexpr protocol::Name<protocol::Kind::kCall> kStart = "start";
    const Json message = Json::parse(payload);
    if (kStart == message.at(0).get_ref<const std::string&>()) {
        End();
        context_ = std::make_shared<ScriptContext>(target_, delegate_, script_, contextId);
    }
    const auto context = context_;
    if (context && context->ContextId() == contextId) context->Receive(message);
}

}  // namespace tarvik
