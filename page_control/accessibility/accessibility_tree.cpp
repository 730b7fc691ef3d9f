#include "page_control/accessibility/accessibility_tree.h"

#include <algorithm>
#include <utility>

namespace tarvik {

namespace {

using Change = AccessibilityTree::Change;
using Type = Change::Type;

// A modal dialog hides the rest of the page. The numbers of more nodes than these are not kept.
constexpr size_t kHiddenNodes = 1000;

bool HasChanged(Type type, const AccessibleNode& before, const AccessibleNode& now) {
    switch (type) {
        case Type::kChildren:
            return before.children != now.children;
        case Type::kName:
            return before.name != now.name;
        case Type::kValue:
            return before.value != now.value;
        case Type::kDescription:
            return before.description != now.description;
        case Type::kState:
            // The focus has an event of its own, and scrolling has none.
            return ((before.states ^ now.states) & ~(kFocused | kOffScreen)) != 0;
        case Type::kSelection:
            return (now.states & ~before.states & kSelected) != 0;
        default:
            return false;
    }
}

bool ChangesText(const Change& change) {
    return change.type == Type::kChildren || change.type == Type::kName || change.type == Type::kValue;
}

}  // namespace

int AccessibilityTree::NumberOf(std::int64_t id) {
    int& number = numbers_[id];
    if (number == 0) number = ++lastNumber_;
    return number;
}

std::vector<Change> AccessibilityTree::Replace(Content content) {
    const Content before = std::exchange(content_, std::move(content));
    const int focusBefore = std::exchange(focus_, kRoot);
    const int lastKnown = std::exchange(lastKnown_, lastNumber_);
    if (numbers_.size() > 2 * content_.nodes.size() + kHiddenNodes)
        std::erase_if(numbers_, [this](const auto& entry) { return !content_.nodes.contains(entry.second); });
    FindFocus();
    std::vector<Change> changes;
    for (const Type type :
         {Type::kChildren, Type::kName, Type::kValue, Type::kDescription, Type::kState, Type::kSelection}) {
        for (const int number : content_.order) {
            const auto old = before.nodes.find(number);
            if (old != before.nodes.end() && HasChanged(type, old->second, content_.nodes.at(number)))
                changes.push_back({type, number});
        }
    }
    const bool isFirst = before.nodes.size() == 1;
    for (const int number : content_.order) {
        const bool isAlert = content_.nodes.at(number).role->number == RoleNumber::kAlert;
        if (isAlert && number > lastKnown && !isFirst) changes.push_back({Type::kAlert, number});
    }
    for (size_t i = 0, count = changes.size(); i < count; ++i) {
        const Change change = {Type::kLiveRegion,
                               ChangesText(changes[i]) ? FindLiveRegion(changes[i].node) : kNone};
        if (change.node != kNone && std::ranges::find(changes, change) == changes.end())
            changes.push_back(change);
    }
    if (focus_ != focusBefore) changes.push_back({Type::kFocus, focus_});
    return changes;
}

void AccessibilityTree::Clear() {
    content_ = {};
    numbers_.clear();
    focus_ = kNone;
}

const AccessibleNode* AccessibilityTree::Find(int node) const {
    const auto found = content_.nodes.find(node);
    return found == content_.nodes.end() ? nullptr : &found->second;
}

// Documents around the element say that they have the focus, too.
void AccessibilityTree::FindFocus() {
    for (const int number : content_.order) {
        if (content_.nodes.at(number).states & kFocused) focus_ = number;
    }
    for (auto& [number, node] : content_.nodes)
        node.states &= ~static_cast<unsigned>(kFocused);
    const std::int64_t descendant = content_.nodes.at(focus_).descendant;
    for (const auto& [number, node] : content_.nodes) {
        if (descendant != 0 && node.element == descendant) focus_ = number;
    }
    content_.nodes.at(focus_).states |= kFocused;
}

int AccessibilityTree::FindLiveRegion(int number) const {
    for (const AccessibleNode* node; (node = Find(number)); number = node->parent) {
        if (node->isLive) return number;
    }
    return kNone;
}

// Of the nodes at the same height, a child covers its parent and a later node an earlier one.
int AccessibilityTree::NodeAt(double x, double y) const {
    int found = kNone, highest = 0;
    for (const int number : content_.order) {
        const AccessibleNode& node = content_.nodes.at(number);
        const bool isThere =
            node.isPlaced && node.box.Contains(x, y) && !(node.states & (kOffScreen | kInvisible));
        if (!isThere || (found != kNone && node.paintOrder < highest)) continue;
        found = number;
        highest = node.paintOrder;
    }
    return found;
}

}  // namespace tarvik
