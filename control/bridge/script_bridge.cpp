#include "control/bridge/script_bridge.h"

#include <algorithm>

#include "tarvik/text.h"
#include "control/engine/launch.h"

namespace tarvik {

extern const std::string_view kBridgeScript;  // the files of page_end

namespace {

// Names that no page guesses.
std::string FreshIdentifier() {
    std::string name = Narrow(UniqueName());
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

}  // namespace

ScriptBridge::ScriptBridge(PageTarget& target, WorldOwner& owner)
    : target_(target), owner_(owner), binding_(FreshIdentifier()), core_(FreshIdentifier()) {
    target_.Post("Runtime.enable");
    // Each evaluation is a script, and without a limit the source of every one of them is kept.
    target_.Post("Debugger.enable", {{"maxScriptsCacheSize", 0}});
    target_.Post("Runtime.addBinding", {{"name", binding_}});
    // A navigation that overtakes one of these loses it.
    target_.Call("Page.addScriptToEvaluateOnNewDocument",
                 {{"source", "((bindingName, coreName) => { 'use strict';" + std::string(kBridgeScript) +
                                 "})('" + binding_ + "', '" + core_ + "')"}});
}

ScriptBridge::~ScriptBridge() {
    End();
}

std::shared_ptr<ScriptWorld> ScriptBridge::World() const {
    return world_ && world_->IsAlive() ? world_ : nullptr;
}

void ScriptBridge::End() {
    if (const auto world = std::move(world_)) world->End();
}

bool ScriptBridge::HandleEvent(std::string_view method, const Json& params) {
    if (method == "Runtime.bindingCalled") {
        OnBindingCalled(params);
    } else if (method == "Debugger.paused") {
        if (world_)
            world_->OnPaused();
        else
            target_.Post("Debugger.resume");  // a statement of the page's own
    } else if (method == "Debugger.resumed") {
        if (world_) world_->OnResumed();
    } else if (method == "Runtime.executionContextsCleared") {
        End();
    } else if (method == "Runtime.executionContextDestroyed") {
        if (world_ && params.value("executionContextId", 0) == world_->Context()) End();
    } else {
        return false;
    }
    return true;
}

void ScriptBridge::OnBindingCalled(const Json& params) {
    if (params.value("name", std::string()) != binding_) return;
    const int context = params.at("executionContextId");
    const Json message = Json::parse(params.at("payload").get_ref<const std::string&>());
    if (message.at(0) == "start") {
        End();
        world_ = std::make_shared<ScriptWorld>(target_, owner_, core_, context);
    }
    const auto world = world_;
    if (world && world->Context() == context) world->Receive(message);
}

}  // namespace tarvik
