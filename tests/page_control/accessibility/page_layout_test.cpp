#include "page_control/accessibility/page_layout.h"

#include "page_control/accessibility/accessibility_tree.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using nlohmann::json;

// Of a page with a scrolling area and a frame, both of which have been scrolled. Each node is the parent of
// the next one, except where the area ends.
const json kSnapshot = json::parse(R"({
    "strings": ["page", "inner", "#document", "HTML", "DIV", "IFRAME", "visible", "auto", "type", "password"],
    "documents": [
        {"frameId": 0, "scrollOffsetX": 0, "scrollOffsetY": 100,
         "nodes": {"backendNodeId": [1, 2, 3, 4, 5, 6],
                   "nodeName": [2, 3, 4, 4, 4, 5],
                   "parentIndex": [-1, 0, 1, 2, 2, 1],
                   "attributes": [[], [], [], [8, 9], [], []],
                   "contentDocumentIndex": {"index": [5], "value": [1]}},
         "layout": {"nodeIndex": [0, 1, 2, 3, 3, 4, 5],
                    "bounds": [[0, 0, 400, 300], [0, 0, 400, 50], [10, 200, 100, 50],
                               [10, 200, 30, 10], [20, 210, 60, 60], [10, 260, 50, 20], [200, 120, 104, 54]],
                    "styles": [[7, 7], [7, 7], [6, 7], [6, 6], [6, 6], [6, 6], [6, 6]],
                    "paintOrders": [0, 1, 2, 3, 3, 3, 9]}},
        {"frameId": 1, "scrollOffsetX": 5, "scrollOffsetY": 20,
         "nodes": {"backendNodeId": [11, 12], "nodeName": [2, 4], "parentIndex": [-1, 0],
                   "attributes": [[], []]},
         "layout": {"nodeIndex": [0, 1], "bounds": [[0, 0, 100, 50], [15, 30, 200, 10]],
                    "styles": [[6, 6], [6, 6]], "paintOrders": [0, 1]}}
    ]})");

std::vector<double> Edges(const PageBox& box) {
    return {box.left, box.top, box.right, box.bottom};
}

TEST(PageLayout, HasTheElementsInTheView) {
    const PageLayout layout(kSnapshot);
    EXPECT_THAT(layout.Frames(), ElementsAre("page", "inner"));
    EXPECT_THAT(Edges(layout.View()), ElementsAre(0, 0, 400, 300));
    EXPECT_THAT(Edges(layout.Find(2)->box), ElementsAre(0, -100, 400, -50));
    EXPECT_THAT(Edges(layout.Find(3)->box), ElementsAre(10, 100, 110, 150));
    EXPECT_THAT(Edges(layout.Find(4)->box), ElementsAre(10, 100, 80, 150))
        << "two boxes, cut off by the area";
    EXPECT_TRUE(layout.Find(4)->isPassword);
    EXPECT_FALSE(layout.Find(3)->isPassword || layout.Find(4)->isClipped);
    EXPECT_TRUE(layout.Find(5)->isClipped);
    EXPECT_EQ(layout.Find(6)->frame, "inner");
    EXPECT_THAT(Edges(layout.Find(11)->box), ElementsAre(202, 22, 302, 72)) << "inside the border";
    EXPECT_THAT(Edges(layout.Find(12)->box), ElementsAre(212, 32, 304, 42));
    EXPECT_EQ(layout.Find(12)->paintOrder, 9);
    EXPECT_FALSE(layout.Find(99));
}

TEST(PageLayout, FindsTheUppermostNode) {
    AccessibilityTree tree;
    const int low = tree.NumberOf(1), high = tree.NumberOf(2), inner = tree.NumberOf(3),
              later = tree.NumberOf(4);
    AccessibilityTree::Content content;
    content.nodes[0] = {.box = {0, 0, 100, 100}, .isPlaced = true};
    content.nodes[high] = {.box = {10, 10, 40, 40}, .isPlaced = true, .paintOrder = 5};
    content.nodes[inner] = {.box = {20, 20, 30, 30}, .isPlaced = true, .paintOrder = 5};
    content.nodes[low] = {.box = {0, 0, 50, 50}, .isPlaced = true, .paintOrder = 1};
    content.nodes[later] = {.states = kOffScreen, .box = {0, 0, 50, 50}, .isPlaced = true, .paintOrder = 9};
    content.order = {0, high, inner, low, later};
    tree.Replace(std::move(content));
    EXPECT_EQ(tree.NodeAt(25, 25), inner);
    EXPECT_EQ(tree.NodeAt(15, 15), high);
    EXPECT_EQ(tree.NodeAt(45, 45), low);
    EXPECT_EQ(tree.NodeAt(75, 75), AccessibilityTree::kRoot);
    EXPECT_EQ(tree.NodeAt(100, 0), AccessibilityTree::kNone);
}

}  // namespace
}  // namespace tarvik
