#include "page_control/accessibility/roles.h"

#include <algorithm>
#include <iterator>

namespace tarvik {

namespace {

using enum RoleNumber;

constexpr Role kRoles[] = {
    {"ColorWell", kButton, true, "press", "color"},
    {"ColumnHeader", kColumnHeader},
    {"Date", kGroup, false, "", "date"},
    {"DateTime", kGroup, false, "", "date and time"},
    {"DisclosureTriangle", kButton, true, "press"},
    {"Iframe", kPane},
    {"IframePresentational", kPane},
    {"InputTime", kGroup, false, "", "time"},
    {"ListMarker", kStaticText, true},
    {"MenuListPopup", kList},
    {"PluginObject", kPane},
    {"RootWebArea", kDocument},
    {"StaticText", kStaticText, true},
    {"alert", kAlert},
    {"alertdialog", kDialog},
    {"application", kApplication},
    {"article", kGroup, false, "", "article"},
    {"banner", kGroup, false, "", "banner landmark"},
    {"button", kButton, true, "press"},
    {"caption", kStaticText},
    {"cell", kCell},
    {"checkbox", kCheckBox, true, "check"},
    {"columnheader", kColumnHeader},
    {"combobox", kComboBox, false, "open"},
    {"complementary", kGroup, false, "", "complementary landmark"},
    {"contentinfo", kGroup, false, "", "content information landmark"},
    {"dialog", kDialog},
    {"directory", kList},
    {"document", kDocument},
    {"form", kGroup, false, "", "form landmark"},
    {"graphics-symbol", kGraphic, true},
    {"grid", kTable},
    {"gridcell", kCell},
    {"heading", kGroup, false, "", "heading level"},
    {"image", kGraphic, true},
    {"img", kGraphic, true},
    {"link", kLink, false, "jump"},
    {"list", kList},
    {"listbox", kList},
    {"listitem", kListItem},
    {"log", kGroup},
    {"main", kGroup, false, "", "main landmark"},
    {"marquee", kText},
    {"math", kEquation},
    {"menu", kMenu},
    {"menubar", kMenuBar},
    {"menuitem", kMenuItem, true, "press"},
    {"menuitemcheckbox", kMenuItem, true, "check"},
    {"menuitemradio", kMenuItem, true, "select"},
    {"meter", kProgressBar, true},
    {"navigation", kGroup, false, "", "navigation landmark"},
    {"option", kListItem, true, "select"},
    {"progressbar", kProgressBar, true},
    {"radio", kRadioButton, true, "select"},
    {"region", kGroup, false, "", "region"},
    {"row", kRow},
    {"rowheader", kRowHeader},
    {"scrollbar", kScrollBar, true},
    {"search", kGroup, false, "", "search landmark"},
    {"searchbox", kText, true, "activate"},
    {"separator", kSeparator, true},
    {"slider", kSlider, true},
    {"spinbutton", kSpinButton, true, "activate"},
    {"status", kStatusBar},
    {"switch", kCheckBox, true, "check"},
    {"tab", kTab, true, "select"},
    {"table", kTable},
    {"tablist", kTabList},
    {"tabpanel", kTabPanel},
    {"textbox", kText, true, "activate"},
    {"timer", kClock},
    {"toolbar", kToolbar},
    {"tooltip", kTooltip},
    {"tree", kTree},
    {"treegrid", kTree},
    {"treeitem", kTreeItem, false, "select"},
};
constexpr std::string_view NameOf(const Role& role) {
    return role.name;
}
static_assert(std::ranges::is_sorted(kRoles, {}, NameOf));

constexpr Role kGroupRole = {"group", kGroup};

}  // namespace

const Role& FindRole(std::string_view name) {
    const auto found = std::ranges::lower_bound(kRoles, name, {}, NameOf);
    return found != std::end(kRoles) && found->name == name ? *found : kGroupRole;
}

}  // namespace tarvik
