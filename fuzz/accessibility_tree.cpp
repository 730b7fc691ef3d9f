#include "page_control/accessibility/accessibility_tree.h"

#include "fuzz/input.h"
#include "page_control/accessibility/json_fields.h"
#include "page_control/accessibility/tree_builder.h"

namespace tarvik {

namespace {

// Every node is reached once, from its parent.
void Check(const AccessibilityTree::Content& content) {
    Require(content.order.size() == content.nodes.size());
    size_t children = 0;
    for (const int number : content.order) {
        const AccessibleNode& node = content.nodes.at(number);
        children += node.children.size();
        Require((number == AccessibilityTree::kRoot) == (node.parent == AccessibilityTree::kNone));
        for (const int child : node.children)
            Require(content.nodes.at(child).parent == number);
    }
    Require(children + 1 == content.nodes.size());
}

}  // namespace

}  // namespace tarvik

// A page as the engine reports it: {"layout": ..., "documents": {"frame": {"nodes": [...]}, ...}}.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvik;
    const auto page = nlohmann::json::parse(data, data + size, nullptr, false);
    if (page.is_discarded()) return 0;
    AccessibilityTree tree;
    const PageSnapshot snapshot = {.layout = PageLayout(Field(page, "layout")),
                                   .documents = Field(page, "documents")};
    auto content = BuildTree(snapshot, tree);
    Check(content);
    tree.Replace(std::move(content));
    // The same page again.
    Require(tree.Replace(BuildTree(snapshot, tree)).empty());
    Require(tree.Find(tree.Focus()) != nullptr);
    const int node = tree.NodeAt(tree.View().right / 2, tree.View().bottom / 2);
    Require(node == AccessibilityTree::kNone || tree.Find(node));
    return 0;
}
