#include "page_control/accessibility/tree_builder.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "page_control/accessibility/json_fields.h"
#include "page_control/accessibility/node_parser.h"

namespace tarvik {

namespace {

using nlohmann::json;

// Adds nodes from a stack of its own: documents may be nested deeper than the thread's stack allows.
class TreeBuilder {
  public:
    TreeBuilder(const PageSnapshot& snapshot, AccessibilityTree& tree)
        : snapshot_(snapshot), tree_(tree), layout_(snapshot.layout) {}

    AccessibilityTree::Content Build() {
        content_.view = layout_.View();
        if (layout_.Frames().empty() || !PushDocument(layout_.Frames().front(), AccessibilityTree::kNone))
            return std::move(content_);
        content_.nodes.clear();
        content_.order.clear();
        while (!pending_.empty()) {
            const Pending next = pending_.back();
            pending_.pop_back();
            Add(next);
        }
        NameLiveRegions();
        return std::move(content_);
    }

  private:
    using Nodes = std::map<std::int64_t, const json*>;  // those that have not been added, by the engine's ids
    struct Pending {
        Nodes* nodes;
        std::int64_t id;
        int parent;
    };

    // False if the document is not known. Its first node is the root.
    bool PushDocument(const std::string& frame, int parent) {
        const std::vector<json>& list = ItemsOf(Field(Field(snapshot_.documents, frame.c_str()), "nodes"));
        if (list.empty()) return false;
        Nodes& nodes = *documents_.emplace_back(std::make_unique<Nodes>());
        for (const json& node : list)
            nodes.emplace(IdOf(Field(node, "nodeId")), &node);
        pending_.push_back({&nodes, IdOf(Field(list[0], "nodeId")), parent});
        return true;
    }

    void Add(const Pending& pending) {
        const auto found = pending.nodes->find(pending.id);
        if (found == pending.nodes->end()) return;
        const EngineNode parsed = ParseNode(*found->second);
        // A node that is listed twice could be its own parent.
        pending.nodes->erase(found);
        int number = pending.parent;
        if (number == AccessibilityTree::kNone || !parsed.isIgnored) {
            number = AddNode(parsed, pending.parent);
            if (number == AccessibilityTree::kNone) return;
            const auto* const place = layout_.Find(parsed.node.element);
            if (parsed.isFrame && place && PushDocument(place->frame, number)) return;
        }
        for (auto child = parsed.children.rbegin(); child != parsed.children.rend(); ++child)
            pending_.push_back({pending.nodes, *child, number});
    }

    // kNone if another document has the node already.
    int AddNode(const EngineNode& parsed, int parent) {
        const bool isRoot = parent == AccessibilityTree::kNone;
        const int number = isRoot ? AccessibilityTree::kRoot : tree_.NumberOf(parsed.id);
        const auto [added, isNew] = content_.nodes.emplace(number, parsed.node);
        if (!isNew) return AccessibilityTree::kNone;
        added->second.parent = parent;
        if (!isRoot) content_.nodes.at(parent).children.push_back(number);
        Place(added->second);
        content_.order.push_back(number);
        return number;
    }

    void Place(AccessibleNode& node) const {
        const auto* const place = layout_.Find(node.element);
        node.isPlaced = place != nullptr;
        // The layout leaves out the inner elements of fields.
        if (!place && node.parent != AccessibilityTree::kNone) {
            const AccessibleNode& parent = content_.nodes.at(node.parent);
            node.box = parent.box;
            node.states |= parent.states & kOffScreen;
        }
        if (!place) return;
        node.box = place->box;
        node.paintOrder = place->paintOrder;
        if (place->isPassword) node.states |= kProtected;
        if (place->isClipped || node.box.Intersect(layout_.View()).IsEmpty()) node.states |= kOffScreen;
    }

    // Screen readers read out the name of a region that has changed.
    void NameLiveRegions() {
        for (const int number : content_.order) {
            const AccessibleNode& text = content_.nodes.at(number);
            if (text.role->number == RoleNumber::kStaticText) AppendTo(text.parent, text.name);
        }
    }

    void AppendTo(int parent, const std::string& text) {
        while (parent != AccessibilityTree::kNone && !content_.nodes.at(parent).isLive)
            parent = content_.nodes.at(parent).parent;
        if (parent == AccessibilityTree::kNone) return;
        AccessibleNode& region = content_.nodes.at(parent);
        if (region.isNamedByContent) region.name += (region.name.empty() ? "" : " ") + text;
    }

    const PageSnapshot& snapshot_;
    AccessibilityTree& tree_;
    const PageLayout& layout_;
    AccessibilityTree::Content content_;
    std::vector<std::unique_ptr<Nodes>> documents_;
    std::vector<Pending> pending_;
};

}  // namespace

AccessibilityTree::Content BuildTree(const PageSnapshot& snapshot, AccessibilityTree& tree) {
    return TreeBuilder(snapshot, tree).Build();
}

}  // namespace tarvik
