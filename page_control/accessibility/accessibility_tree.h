#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "page_control/accessibility/accessible_node.h"

namespace tarvik {

// The content of a page for screen readers. A node keeps its number as long as its document lives, also while
// it is hidden; no later node gets it.
class AccessibilityTree {
  public:
    static constexpr int kRoot = 0;  // always exists; busy until there is a document
    static constexpr int kNone = -1;

    struct Change {
        // In the order in which screen readers should get them.
        enum class Type {
            kChildren,
            kName,
            kValue,
            kDescription,
            kState,
            kSelection,
            kAlert,
            kLiveRegion,
            kFocus
        };
        Type type;
        int node;
        bool operator==(const Change& other) const = default;
    };

    // Nodes of a document, in its order: a parent comes before its children.
    struct Content {
        std::map<int, AccessibleNode> nodes = {{kRoot, {.states = kBusy | kReadOnly}}};
        std::vector<int> order = {kRoot};
        PageBox view;
    };

    // The number of a node, by the engine's id.
    int NumberOf(std::int64_t id);

    // Takes new content, whose nodes have numbers from NumberOf. Returns what has changed.
    std::vector<Change> Replace(Content content);
    // The document has gone. The next one's nodes get other numbers.
    void Clear();

    // Null if the node does not exist any more.
    const AccessibleNode* Find(int node) const;
    // The node with the focus; the root if no other one has it.
    int Focus() const { return focus_ == kNone ? kRoot : focus_; }
    // The node that is seen at a point of the view; kNone outside of all.
    int NodeAt(double x, double y) const;
    const PageBox& View() const { return content_.view; }

  private:
    void FindFocus();
    int FindLiveRegion(int node) const;

    Content content_;
    std::map<std::int64_t, int> numbers_;  // by the engine's ids
    int lastNumber_ = kRoot;
    int lastKnown_ = kRoot;  // the last number of the previous content
    int focus_ = kNone;      // of no document yet
};

}  // namespace tarvik
