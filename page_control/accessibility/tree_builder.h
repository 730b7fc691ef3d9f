#pragma once

#include <nlohmann/json.hpp>

#include "page_control/accessibility/accessibility_tree.h"
#include "page_control/accessibility/page_layout.h"

namespace tarvik {

// What the engine reports about a page.
struct PageSnapshot {
    PageLayout layout;
    nlohmann::json documents;  // the results of Accessibility.getFullAXTree, by frame
};

// The tree of a page: the documents of its frames in one another, without the nodes that screen readers do
// not need.
AccessibilityTree::Content BuildTree(const PageSnapshot& snapshot, AccessibilityTree& tree);

}  // namespace tarvik
