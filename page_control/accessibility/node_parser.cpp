#include "page_control/accessibility/node_parser.h"

#include <algorithm>
#include <string_view>

#include "page_control/accessibility/json_fields.h"

namespace tarvik {

namespace {

using nlohmann::json;

// The text of a value of the tree, {"type": ..., "value": ...}; empty if there is none.
std::string ValueText(const json& property) {
    const json& value = Field(property, "value");
    if (value.is_string() || value.is_null()) return TextOf(value);
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

struct StateName {
    std::string_view property;
    std::string_view value;
    unsigned state;
};

constexpr StateName kStates[] = {
    {"busy", "true", kBusy},
    {"checked", "true", kChecked},
    {"checked", "mixed", kMixed},
    {"disabled", "true", kUnavailable},
    {"expanded", "true", kExpanded},
    {"expanded", "false", kCollapsed},
    {"focusable", "true", kFocusable},
    {"focused", "true", kFocused},
    {"hidden", "true", kInvisible},
    {"multiselectable", "true", kMultiSelectable},
    {"pressed", "true", kPressed},
    {"pressed", "mixed", kMixed},
    {"readonly", "true", kReadOnly},
    {"selected", "true", kSelected | kSelectable},
    {"selected", "false", kSelectable},
};

struct Properties {
    std::string url;
    std::string valueText;
    std::string level;
    bool isRichText = false;
};

void ParseProperty(const json& property, AccessibleNode& node, Properties& more) {
    const std::string& name = TextOf(Field(property, "name"));
    const json& value = Field(property, "value");
    const std::string text = ValueText(value);
    for (const StateName& state : kStates) {
        if (state.property == name && state.value == text) node.states |= state.state;
    }
    if (name == "url") more.url = text;
    if (name == "valuetext") more.valueText = text;
    if (name == "level") more.level = text;
    if (name == "keyshortcuts") node.shortcut = text;
    if (name == "hasPopup" && text != "false") node.states |= kHasPopup;
    if (name == "live") node.isLive = text != "off";
    if (name == "editable") (text == "richtext" ? more.isRichText : node.hasText) = true;
    if (name == "activedescendant")
        node.descendant = IntegerOf(Field(Item(Field(value, "relatedNodes"), 0), "backendDOMNodeId"));
}

// Groups without a meaning of their own, which only make the way through the page longer.
bool IsPlain(std::string_view role, const AccessibleNode& node) {
    return (role == "generic" || role == "none") && node.name.empty() && node.description.empty() &&
           !node.isLive && !(node.states & kFocusable);
}

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \n\r\t") == text.npos;
}

void Complete(AccessibleNode& node, const Properties& properties) {
    const RoleNumber role = node.role->number;
    if (!properties.valueText.empty()) node.value = properties.valueText;
    if (role == RoleNumber::kLink || role == RoleNumber::kDocument) node.value = properties.url;
    if (role == RoleNumber::kTreeItem) node.value = properties.level;
    if (node.description.empty()) {
        node.description = node.role->description;
        if (!node.description.empty() && !properties.level.empty())
            node.description += " " + properties.level;
    }
    node.isNamedByContent = node.isLive && node.name.empty();
    if (role == RoleNumber::kLink) node.states |= kLinked;
    if ((role == RoleNumber::kDocument && !properties.isRichText) || role == RoleNumber::kStaticText)
        node.states |= kReadOnly;
}

}  // namespace

EngineNode ParseNode(const json& source) {
    EngineNode parsed = {.id = IdOf(Field(source, "nodeId"))};
    for (const json& child : ItemsOf(Field(source, "childIds")))
        parsed.children.push_back(IdOf(child));
    const std::string role = ValueText(Field(source, "role"));
    AccessibleNode& node = parsed.node;
    parsed.isIgnored = Field(source, "ignored") == true || role == "LineBreak" || role == "InlineTextBox";
    if (parsed.isIgnored) return parsed;
    node.role = &FindRole(role);
    node.name = ValueText(Field(source, "name"));
    node.value = ValueText(Field(source, "value"));
    node.description = ValueText(Field(source, "description"));
    node.element = IntegerOf(Field(source, "backendDOMNodeId"));
    Properties properties;
    for (const json& property : ItemsOf(Field(source, "properties")))
        ParseProperty(property, node, properties);
    Complete(node, properties);
    parsed.isFrame = role == "Iframe" || role == "IframePresentational";
    parsed.isIgnored = IsPlain(role, node) || (role == "StaticText" && IsBlank(node.name));
    if ((node.role->isLeaf || node.hasText) && !properties.isRichText) parsed.children.clear();
    return parsed;
}

}  // namespace tarvik
