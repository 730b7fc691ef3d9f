#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "page_control/accessibility/tree_builder.h"
#include "page_control/engine/devtools.h"

namespace tarvik {

// Loads what the engine reports about a page for screen readers, without waiting. The engine sends
// Accessibility.nodesUpdated only for nodes that it was asked for one by one, so these are registered, too.
class TreeLoader {
  public:
    explicit TreeLoader(PageTarget& target) : target_(target) {}

    // Null after a failure. An earlier load that has not ended is given up.
    using Handler = std::function<void(const PageSnapshot* snapshot)>;
    void Load(Handler handler);

    // The document has gone, and with it what has been registered.
    void Reset();

  private:
    struct Round {
        Handler handler;
        PageSnapshot snapshot;
        size_t pending = 0;  // documents
    };

    void OnLayout(const std::shared_ptr<Round>& round, const Json* result);
    void LoadDocument(const std::shared_ptr<Round>& round, const std::string& frame);
    void Finish(const std::shared_ptr<Round>& round, const PageSnapshot* snapshot);
    void RegisterChildren(const std::string& frame, const Json& nodes);

    PageTarget& target_;
    std::shared_ptr<Round> round_;       // the current one; replies of others are ignored
    std::set<std::int64_t> registered_;  // ids of nodes
};

}  // namespace tarvik
