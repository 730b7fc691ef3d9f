#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "page_control/accessibility/roles.h"

namespace tarvik {

// A rectangle in pixels of the page, relative to its view.
struct PageBox {
    double left = 0, top = 0, right = 0, bottom = 0;

    bool IsEmpty() const { return !(left < right && top < bottom); }
    bool Contains(double x, double y) const { return left <= x && x < right && top <= y && y < bottom; }
    PageBox Intersect(const PageBox& other) const {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }
    PageBox Unite(const PageBox& other) const {
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
    bool operator==(const PageBox& other) const = default;
};

// States with the numbers of Active Accessibility.
enum NodeState : unsigned {
    kUnavailable = 0x1,
    kSelected = 0x2,
    kFocused = 0x4,
    kPressed = 0x8,
    kChecked = 0x10,
    kMixed = 0x20,
    kReadOnly = 0x40,
    kExpanded = 0x200,
    kCollapsed = 0x400,
    kBusy = 0x800,
    kInvisible = 0x8000,
    kOffScreen = 0x10000,
    kFocusable = 0x100000,
    kSelectable = 0x200000,
    kLinked = 0x400000,
    kMultiSelectable = 0x1000000,
    kProtected = 0x20000000,
    kHasPopup = 0x40000000,
};

// A node of a page's accessibility tree. All text is UTF-8.
struct AccessibleNode {
    const Role* role = &FindRole("RootWebArea");
    std::string name;
    std::string value;
    std::string description;
    std::string shortcut;
    unsigned states = 0;
    bool isNamedByContent = false;  // a live region without a name
    bool isLive = false;            // changes of the content are to be read out
    bool hasText = false;           // it is a field, whose value is text
    std::int64_t element = 0;       // the engine's number of the DOM node; 0 if there is none
    std::int64_t descendant = 0;    // the same of the one that has the focus in this element's place
    PageBox box;
    bool isPlaced = false;  // otherwise the box is that of an element around it
    int paintOrder = 0;
    int parent = -1;
    std::vector<int> children;
};

}  // namespace tarvik
