#include "page_control/accessibility/accessibility_tree.h"

#include <map>

#include "page_control/accessibility/tree_builder.h"
#include "tests/support/test.h"

namespace tarvik {
namespace {

using nlohmann::json;
using Change = AccessibilityTree::Change;
using enum Change::Type;

// A page of one frame as the engine reports it: nodes without boxes.
class TreeOfNodes : public testing::Test {
  protected:
    // Properties are {"name": value, ...}.
    void Add(const std::string& id, const char* role, const char* name,
             std::vector<std::string> children = {}, const json& properties = json::object()) {
        json node = {
            {"nodeId", id},         {"role", {{"value", role}}},         {"name", {{"value", name}}},
            {"childIds", children}, {"backendDOMNodeId", std::stoi(id)}, {"properties", json::array()}};
        for (const auto& [property, value] : properties.items()) {
            if (property == "value") {
                node["value"] = {{"value", value}};
            } else if (property == "activedescendant") {
                const json related = json::array({{{"backendDOMNodeId", value}}});
                node["properties"].push_back({{"name", property}, {"value", {{"relatedNodes", related}}}});
            } else {
                node["properties"].push_back({{"name", property}, {"value", {{"value", value}}}});
            }
        }
        nodes_.push_back(node);
    }
    void AddIgnored(const std::string& id, std::vector<std::string> children) {
        nodes_.push_back({{"nodeId", id}, {"ignored", true}, {"childIds", children}});
    }

    // Takes the nodes added since the last time as the page's content.
    std::vector<Change> Update() {
        const json layout = {{"strings", {"frame"}},
                             {"documents",
                              {{{"frameId", 0},
                                {"nodes",
                                 {{"backendNodeId", json::array()},
                                  {"parentIndex", json::array()},
                                  {"attributes", json::array()}}},
                                {"layout", {{"nodeIndex", json::array()}, {"bounds", json::array()}}}}}}};
        const PageSnapshot snapshot = {.layout = PageLayout(layout),
                                       .documents = {{"frame", {{"nodes", nodes_}}}}};
        nodes_ = json::array();
        return tree_.Replace(BuildTree(snapshot, tree_));
    }

    // The nodes below one, as "role:name(children)".
    std::string Text(int node = AccessibilityTree::kRoot) const {
        const AccessibleNode& found = *tree_.Find(node);
        std::string text = std::string(found.role->name) + ":" + found.name;
        if (found.children.empty()) return text;
        std::string children;
        for (const int child : found.children)
            children += (children.empty() ? "" : " ") + Text(child);
        return text + "(" + children + ")";
    }

    int Find(const std::string& name, int node = AccessibilityTree::kRoot) const {
        if (tree_.Find(node)->name == name) return node;
        for (const int child : tree_.Find(node)->children) {
            if (const int found = Find(name, child); found != AccessibilityTree::kNone) return found;
        }
        return AccessibilityTree::kNone;
    }

    AccessibilityTree tree_;

  private:
    json nodes_ = json::array();
};

TEST_F(TreeOfNodes, HasWhatScreenReadersNeed) {
    EXPECT_TRUE(tree_.Find(AccessibilityTree::kRoot)->states & kBusy);
    Add("1", "RootWebArea", "Page", {"2"}, {{"url", "file:///page"}, {"focused", true}});
    AddIgnored("2", {"3", "6", "10", "12"});
    Add("3", "generic", "", {"4"});
    Add("4", "button", "Press", {"5"}, {{"disabled", true}, {"pressed", "mixed"}, {"hasPopup", "menu"}});
    Add("5", "StaticText", "Press");
    Add("6", "textbox", "Field", {"7"}, {{"value", "abc"}, {"editable", "plaintext"}});
    Add("7", "generic", "", {"8"}, {{"editable", "plaintext"}});
    Add("8", "StaticText", "abc");
    Add("10", "heading", "Top", {"11", "-1", "99"}, {{"level", 2}});
    Add("11", "StaticText", "Top", {"-2"});
    Add("-1", "StaticText", " \n");
    Add("-2", "InlineTextBox", "Top");
    Add("12", "slider", "Volume", {}, {{"value", 4.5}, {"valuetext", ""}});
    Update();
    EXPECT_EQ(Text(),
              "RootWebArea:Page(button:Press textbox:Field heading:Top(StaticText:Top) slider:Volume)");
    const auto& root = *tree_.Find(AccessibilityTree::kRoot);
    EXPECT_EQ(root.value, "file:///page");
    EXPECT_EQ(root.states & (kReadOnly | kBusy | kFocused), kReadOnly | kFocused);
    EXPECT_EQ(tree_.Find(Find("Press"))->states & ~kOffScreen, kUnavailable | kMixed | kHasPopup);
    EXPECT_EQ(tree_.Find(Find("Field"))->value, "abc");
    EXPECT_EQ(tree_.Find(Find("Top"))->description, "heading level 2");
    EXPECT_EQ(tree_.Find(Find("Volume"))->value, "4.5");
}

TEST_F(TreeOfNodes, ReportsWhatHasChanged) {
    const auto add = [this](const char* name, const char* value, bool checked) {
        Add("1", "RootWebArea", "Page", {"2", "3", "4"});
        Add("2", "button", name);
        Add("3", "textbox", "Field", {}, {{"value", value}, {"editable", "plaintext"}});
        Add("4", "checkbox", "Box", {}, {{"checked", checked ? "true" : "false"}});
    };
    add("Old", "1", false);
    EXPECT_THAT(Update(),
                ElementsAre(Change{kChildren, 0}, Change{kName, 0}, Change{kState, 0}, Change{kFocus, 0}));
    const int button = Find("Old"), field = Find("Field"), box = Find("Box");
    add("Old", "1", false);
    EXPECT_THAT(Update(), IsEmpty());
    add("New", "2", true);
    EXPECT_THAT(Update(), ElementsAre(Change{kName, button}, Change{kValue, field}, Change{kState, box}));
    EXPECT_EQ(tree_.Find(button)->name, "New");
}

// A node that moves is the same one; a number never belongs to a second node.
TEST_F(TreeOfNodes, KeepsTheNumbersOfNodes) {
    Add("1", "RootWebArea", "Page", {"2", "3"});
    Add("2", "button", "A");
    Add("3", "button", "B");
    Update();
    const int a = Find("A"), b = Find("B");
    Add("1", "RootWebArea", "Page", {"3", "4"});
    Add("3", "button", "B");
    Add("4", "list", "", {"2"});
    Add("2", "button", "A");
    EXPECT_THAT(Update(), ElementsAre(Change{kChildren, 0}));
    EXPECT_EQ(Find("A"), a);
    EXPECT_EQ(Find("B"), b);
    EXPECT_STREQ(tree_.Find(tree_.Find(a)->parent)->role->name, "list");
    Add("1", "RootWebArea", "Page", {"3"});
    Add("3", "button", "B");
    Update();
    EXPECT_FALSE(tree_.Find(a));
    Add("1", "RootWebArea", "Page", {"2", "3"});
    Add("2", "button", "A");
    Add("3", "button", "B");
    Update();
    EXPECT_EQ(Find("A"), a) << "it was hidden";
    EXPECT_EQ(Find("B"), b);
    // A page that makes new nodes all the time does not make the host grow.
    Add("1", "RootWebArea", "Page", {"9"});
    Add("9", "list", "");
    Update();
    const int old = tree_.NumberOf(100);
    for (int i = 0; i < 1500; ++i)
        tree_.NumberOf(1000 + i);
    Add("1", "RootWebArea", "Page", {"9"});
    Add("9", "list", "");
    Update();
    EXPECT_NE(tree_.NumberOf(100), old);
    // Another process of the engine counts from the start.
    tree_.Clear();
    EXPECT_TRUE(tree_.Find(AccessibilityTree::kRoot)->states & kBusy);
    Add("1", "RootWebArea", "Next", {"3"});
    Add("3", "button", "C");
    EXPECT_EQ(Update().back(), (Change{kFocus, 0}));
    EXPECT_FALSE(tree_.Find(b));
    EXPECT_GT(Find("C"), b);
}

TEST_F(TreeOfNodes, FollowsTheFocusAndTheSelection) {
    const auto add = [this](int focused, int selected) {
        Add("1", "RootWebArea", "Page", {"2", "3"}, {{"focused", true}});
        Add("2", "button", "A", {}, {{"focused", focused == 2}});
        Add("3", "listbox", "List", {"4", "5"},
            focused == 3 ? json{{"focused", true}, {"activedescendant", selected}} : json::object());
        Add("4", "option", "One", {}, {{"selected", selected == 4}});
        Add("5", "option", "Two", {}, {{"selected", selected == 5}});
    };
    add(2, 4);
    Update();
    EXPECT_EQ(tree_.Focus(), Find("A"));
    EXPECT_FALSE(tree_.Find(AccessibilityTree::kRoot)->states & kFocused);
    add(3, 4);
    EXPECT_THAT(Update(), ElementsAre(Change{kFocus, Find("One")}));
    add(3, 5);
    const int one = Find("One"), two = Find("Two");
    EXPECT_THAT(Update(), ElementsAre(Change{kState, one}, Change{kState, two}, Change{kSelection, two},
                                      Change{kFocus, two}));
    EXPECT_EQ(tree_.Find(two)->states & (kFocused | kSelected), kFocused | kSelected);
}

TEST_F(TreeOfNodes, ReportsAlertsAndLiveRegions) {
    const auto add = [this](const std::string& text, bool isAlert) {
        Add("1", "RootWebArea", "Page", {"2", "5"});
        Add("2", "generic", "", {"3"}, {{"live", "polite"}});
        Add("3", "paragraph", "", {text == "Ready" ? "4" : "6"});
        Add(text == "Ready" ? "4" : "6", "StaticText", text.c_str());
        if (isAlert) Add("5", "alert", "Fire");
    };
    add("Ready", false);
    Update();
    const int region = Find("Ready"), paragraph = tree_.Find(region)->children[0];
    add("Done", true);
    const auto changes = Update();
    EXPECT_THAT(changes,
                ElementsAre(Change{kChildren, 0}, Change{kChildren, paragraph}, Change{kName, region},
                            Change{kAlert, Find("Fire")}, Change{kLiveRegion, region}));
    EXPECT_EQ(tree_.Find(region)->name, "Done");
    add("Done", false);
    Update();
    add("Done", true);
    EXPECT_THAT(Update(), ElementsAre(Change{kChildren, 0})) << "it was hidden";
}

// The engine's replies may belong to different moments.
TEST_F(TreeOfNodes, SurvivesContradictions) {
    Add("1", "RootWebArea", "Page", {"2", "2", "1", "7"});
    Add("2", "list", "List", {"3", "1"});
    Add("3", "list", "Inner", {"2"});
    Add("4", "button", "Lost");
    Update();
    EXPECT_EQ(Text(), "RootWebArea:Page(list:List(list:Inner))");
    std::string above = "1";
    for (int i = 2; i < 10'000; ++i) {
        Add(above, i == 2 ? "RootWebArea" : "list", "", {std::to_string(i)});
        above = std::to_string(i);
    }
    Update();
    int depth = 0;
    for (const AccessibleNode* node = tree_.Find(0); !node->children.empty();
         node = tree_.Find(node->children[0]))
        ++depth;
    EXPECT_EQ(depth, 9'997);
    Add("1", "button", "Still here", {}, {{"activedescendant", "x"}, {"level", json::array()}});
    Update();
    EXPECT_EQ(Text(), "button:Still here");
}

}  // namespace
}  // namespace tarvik
