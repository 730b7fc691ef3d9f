#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "page_control/accessibility/accessible_node.h"

namespace tarvik {

// Where the elements of a page are, from the result of DOMSnapshot.captureSnapshot with these styles and with
// paint orders.
class PageLayout {
  public:
    static nlohmann::json Styles() { return {"overflow-x", "overflow-y"}; }

    struct Element {
        PageBox box;
        bool isDrawn = false;    // it has a box
        bool isClipped = false;  // nothing of the box is visible in the scrolling areas around it
        int paintOrder = 0;
        bool isPassword = false;
        std::string frame;  // id of the frame that it contains
    };

    PageLayout() = default;
    explicit PageLayout(const nlohmann::json& snapshot);

    // Ids of the frames whose documents are known, the page's own first.
    const std::vector<std::string>& Frames() const { return frames_; }
    // Null if the layout does not have the element.
    const Element* Find(std::int64_t element) const;
    // The part of the page that is in view.
    const PageBox& View() const { return view_; }

  private:
    class DocumentReader;

    std::vector<std::string> frames_;
    std::map<std::int64_t, Element> elements_;
    PageBox view_;
};

}  // namespace tarvik
