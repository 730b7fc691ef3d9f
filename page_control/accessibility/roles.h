#pragma once

#include <string_view>

namespace tarvik {

// Roles with the numbers of Active Accessibility.
enum class RoleNumber {
    kMenuBar = 0x2,
    kScrollBar = 0x3,
    kAlert = 0x8,
    kMenu = 0xB,
    kMenuItem = 0xC,
    kTooltip = 0xD,
    kApplication = 0xE,
    kDocument = 0xF,
    kPane = 0x10,
    kDialog = 0x12,
    kGroup = 0x14,
    kSeparator = 0x15,
    kToolbar = 0x16,
    kStatusBar = 0x17,
    kTable = 0x18,
    kColumnHeader = 0x19,
    kRowHeader = 0x1A,
    kRow = 0x1C,
    kCell = 0x1D,
    kLink = 0x1E,
    kList = 0x21,
    kListItem = 0x22,
    kTree = 0x23,
    kTreeItem = 0x24,
    kTab = 0x25,
    kTabPanel = 0x26,
    kGraphic = 0x28,
    kStaticText = 0x29,
    kText = 0x2A,
    kButton = 0x2B,
    kCheckBox = 0x2C,
    kRadioButton = 0x2D,
    kComboBox = 0x2E,
    kDropList = 0x2F,
    kProgressBar = 0x30,
    kSlider = 0x33,
    kSpinButton = 0x34,
    kEquation = 0x37,
    kTabList = 0x3C,
    kClock = 0x3D,
};

// How elements with a role of the engine appear to screen readers.
struct Role {
    const char* name;  // the engine's
    RoleNumber number;
    bool isLeaf = false;      // the children only show the name and the value
    const char* action = "";  // the default one; empty if there is none
    // For a role that has no number of its own.
    const char* description = "";
};

// A group for roles that are not in the table.
const Role& FindRole(std::string_view name);

}  // namespace tarvik
