#pragma once

#include <cstdint>
#include <vector>

#include <nlohmann/json.hpp>

#include "page_control/accessibility/accessible_node.h"

namespace tarvik {

// A node as the engine describes it.
struct EngineNode {
    std::int64_t id = 0;
    std::vector<std::int64_t> children;
    bool isIgnored = false;  // its children take its place
    bool isFrame = false;
    AccessibleNode node;
};

// Reads a node of Accessibility.getFullAXTree.
EngineNode ParseNode(const nlohmann::json& node);

}  // namespace tarvik
