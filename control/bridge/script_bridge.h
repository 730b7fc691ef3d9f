#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "control/bridge/script_world.h"
#include "control/engine/devtools.h"

namespace tarvik {

// Puts the page's end of the bridge into each document of a target, and keeps the world of the document that
// is there now. Main thread.
class ScriptBridge {
  public:
    // Before the target's first navigation.
    ScriptBridge(PageTarget& target, WorldOwner& owner);
    ~ScriptBridge();
    ScriptBridge(const ScriptBridge&) = delete;
    ScriptBridge& operator=(const ScriptBridge&) = delete;

    // An event of the target's session. True if it was meant for the bridge alone.
    bool HandleEvent(std::string_view method, const Json& params);

    // Null before the first document's start, and when the document has ended.
    std::shared_ptr<ScriptWorld> World() const;

    // The page is gone: calls under way fail.
    void End();

  private:
    void OnBindingCalled(const Json& params);

    PageTarget& target_;
    WorldOwner& owner_;
    const std::string binding_;
    const std::string core_;
    std::shared_ptr<ScriptWorld> world_;
};

}  // namespace tarvik
