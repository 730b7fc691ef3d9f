#include "control/bridge/script_bridge.h"

namespace tarvik {

namespace {

// Every evaluation is a script. Without a limit the engine would keep the source of each.
PageTarget& EnableDebugger(PageTarget& target) {
    target.Post("Debugger.enable", {{"maxScriptsCacheSize", 0}});
    return target;
}

}  // namespace

ScriptBridge::ScriptBridge(PageTarget& target, ScriptContextDelegate& delegate)
    : target_(EnableDebugger(target)), delegate_(delegate), script_(target, kBridgeScript) {}

ScriptBridge::~ScriptBridge() {
    End();
}

std::shared_ptr<ScriptContext> ScriptBridge::Context() const {
    return context_ && context_->IsAlive() ? context_ : nullptr;
}

void ScriptBridge::End() {
    if (const auto context = std::move(context_)) context->End();
}

bool ScriptBridge::HandleEvent(std::string_view method, const Json& params) {
    if (method == "Runtime.bindingCalled") {
        OnBindingCalled(params);
    } else if (method == "Debugger.paused") {
        if (context_)
            context_->OnPaused();
        else
            target_.Post("Debugger.resume");  // at a statement of the page itself
    } else if (method == "Debugger.resumed") {
        if (context_) context_->OnResumed();
    } else if (method == "Runtime.executionContextsCleared") {
        End();
    } else if (method == "Runtime.executionContextDestroyed") {
        if (context_ && params.value("executionContextId", 0) == context_->ContextId()) End();
    } else {
        return false;
    }
    return true;
}

void ScriptBridge::OnBindingCalled(const Json& params) {
    const std::string* const payload = script_.Payload(params);
    if (!payload) return;
    const int contextId = params.at("executionContextId");
    const Json message = Json::parse(*payload);
    if (message.at(0) == "start") {
        End();
        context_ = std::make_shared<ScriptContext>(target_, delegate_, script_, contextId);
    }
    const auto context = context_;
    if (context && context->ContextId() == contextId) context->Receive(message);
}

}  // namespace tarvik
