#pragma once

#include <memory>
#include <string>
#include <vector>

#include "page_control/bridge/script_context.h"
#include "page_control/engine/devtools.h"
#include "page_control/injected/injected_script.h"

namespace tarvik {

// Joins the script of a target's documents with native objects: injects the bridge's script into each
// document and owns the script context of the current one. Main thread.
class ScriptBridge {
  public:
    // Before the target's first navigation.
    ScriptBridge(PageTarget& target, ScriptContextDelegate& delegate);
    ~ScriptBridge();
    ScriptBridge(const ScriptBridge&) = delete;
    ScriptBridge& operator=(const ScriptBridge&) = delete;

    // Null before the first document's start and after its end.
    std::shared_ptr<ScriptContext> Context() const;

    // Ends the current context. Calls in progress fail.
    void End();

  private:
    void OnPost(std::string_view payload, int contextId);

    PageTarget& target_;
    ScriptContextDelegate& delegate_;
    std::shared_ptr<ScriptContext> context_;
    const InjectedScript script_;
    std::vector<EventRouter::Subscription> subscriptions_;
};

}  // namespace tarvik
