#include "page_control/accessibility/page_layout.h"

#include <optional>

#include "page_control/accessibility/json_fields.h"

namespace tarvik {

namespace {

using nlohmann::json;

PageBox BoxOf(const json& bounds) {
    const double left = NumberOf(Item(bounds, 0)), top = NumberOf(Item(bounds, 1));
    return {left, top, left + NumberOf(Item(bounds, 2)), top + NumberOf(Item(bounds, 3))};
}

// The view of a document is its first box.
PageBox ViewOf(const json& document) {
    return BoxOf(Item(Field(Field(document, "layout"), "bounds"), 0));
}

constexpr PageBox kEverywhere = {-1e9, -1e9, 1e9, 1e9};

}  // namespace

// Reads a document of the snapshot, whose nodes are in the order of the document and refer to its texts by
// their indices.
class PageLayout::DocumentReader {
  public:
    struct Place {
        double x = 0, y = 0;  // of the document's view
        PageBox clip = kEverywhere;
        std::optional<int> paintOrder;  // of a frame
    };

    DocumentReader(const json& snapshot, size_t index, std::vector<std::optional<Place>>& places)
        : strings_(Field(snapshot, "strings")),
          documents_(Field(snapshot, "documents")),
          document_(ItemsOf(documents_)[index]),
          nodes_(Field(document_, "nodes")),
          places_(places),
          place_(*places[index]),
          read_(ItemsOf(Field(nodes_, "backendNodeId")).size()) {}

    void Read(std::map<std::int64_t, Element>& elements) {
        ReadBoxes();
        const json& parents = Field(nodes_, "parentIndex");
        for (size_t i = 0; i < read_.size(); ++i) {
            const auto index = static_cast<std::int64_t>(i);
            const std::string& name = Text(Item(Field(nodes_, "nodeName"), index));
            // The document's view scrolls in their place.
            if (name == "HTML" || name == "BODY") read_[i].clips = false;
            const ReadNode* const parent = Find(Item(parents, index));
            Clip(read_[i], parent && parent < &read_[i] ? parent->clip : place_.clip);
            read_[i].element.isPassword = IsPassword(index);
        }
        ReadFrames();
        const std::vector<json>& ids = ItemsOf(Field(nodes_, "backendNodeId"));
        for (size_t i = 0; i < read_.size(); ++i)
            elements[IntegerOf(ids[i])] = std::move(read_[i].element);
    }

    const std::string& FrameId() const { return Text(Field(document_, "frameId")); }
    PageBox View() const { return ViewOf(document_); }

  private:
    struct ReadNode {
        Element element;
        bool clips = false;
        PageBox whole;               // the box, if nothing clipped it
        PageBox clip = kEverywhere;  // of the content
    };

    // Null for an index that is out of range.
    ReadNode* Find(const json& index) {
        const auto number = static_cast<std::uint64_t>(IntegerOf(index));
        return index.is_number() && number < read_.size() ? &read_[number] : nullptr;
    }
    const std::string& Text(const json& index) const { return TextOf(Item(strings_, IntegerOf(index))); }

    void ReadBoxes() {
        const json& layout = Field(document_, "layout");
        const std::vector<json>& indices = ItemsOf(Field(layout, "nodeIndex"));
        for (size_t i = 0; i < indices.size(); ++i) {
            ReadNode* const node = Find(indices[i]);
            if (!node) continue;
            const auto index = static_cast<std::int64_t>(i);
            const PageBox box = BoxOf(Item(Field(layout, "bounds"), index));
            // The view itself does not scroll.
            const double x = place_.x - (i > 0 ? NumberOf(Field(document_, "scrollOffsetX")) : 0);
            const double y = place_.y - (i > 0 ? NumberOf(Field(document_, "scrollOffsetY")) : 0);
            AddBox(node->element, {box.left + x, box.top + y, box.right + x, box.bottom + y});
            const std::int64_t order = IntegerOf(Item(Field(layout, "paintOrders"), index));
            node->element.paintOrder = place_.paintOrder.value_or(static_cast<int>(order));
            for (const json& style : ItemsOf(Item(Field(layout, "styles"), index)))
                node->clips |= Text(style) != "visible" && i > 0;
        }
    }

    // A node may have several boxes.
    static void AddBox(Element& element, const PageBox& box) {
        element.box = element.isDrawn ? element.box.Unite(box) : box;
        element.isDrawn = true;
    }

    static void Clip(ReadNode& node, const PageBox& outer) {
        Element& element = node.element;
        node.whole = element.box;
        node.clip = node.clips ? outer.Intersect(element.box) : outer;
        const PageBox visible = element.box.Intersect(outer);
        element.isClipped = visible.IsEmpty() && !element.box.IsEmpty();
        if (element.isDrawn && !element.isClipped) element.box = visible;
    }

    // The documents of frames, which lie in the middle of their elements, inside the border.
    void ReadFrames() {
        const json& content = Field(nodes_, "contentDocumentIndex");
        const std::vector<json>& indices = ItemsOf(Field(content, "index"));
        for (size_t i = 0; i < indices.size(); ++i) {
            ReadNode* const node = Find(indices[i]);
            const std::int64_t index = IntegerOf(Item(Field(content, "value"), static_cast<std::int64_t>(i)));
            if (!node || index < 0 || static_cast<size_t>(index) >= places_.size()) continue;
            const json& document = Item(documents_, index);
            const PageBox view = ViewOf(document);
            const PageBox& box = node->whole;
            places_[static_cast<size_t>(index)] = {(box.left + box.right - view.right) / 2,
                                                   (box.top + box.bottom - view.bottom) / 2,
                                                   node->clip.Intersect(box), node->element.paintOrder};
            node->element.frame = Text(Field(document, "frameId"));
        }
    }

    bool IsPassword(std::int64_t index) const {
        const std::vector<json>& attributes = ItemsOf(Item(Field(nodes_, "attributes"), index));
        for (size_t i = 0; i + 1 < attributes.size(); i += 2) {
            if (Text(attributes[i]) == "type" && Text(attributes[i + 1]) == "password") return true;
        }
        return false;
    }

    const json& strings_;
    const json& documents_;
    const json& document_;
    const json& nodes_;
    std::vector<std::optional<Place>>& places_;
    const Place place_;
    std::vector<ReadNode> read_;
};

PageLayout::PageLayout(const json& snapshot) {
    const size_t count = ItemsOf(Field(snapshot, "documents")).size();
    std::vector<std::optional<DocumentReader::Place>> places(count);
    if (count > 0) places[0].emplace();
    for (size_t i = 0; i < count; ++i) {
        if (!places[i]) continue;  // of a frame that has gone
        DocumentReader reader(snapshot, i, places);
        reader.Read(elements_);
        frames_.push_back(reader.FrameId());
        if (i == 0) view_ = reader.View();
    }
}

const PageLayout::Element* PageLayout::Find(std::int64_t element) const {
    const auto found = elements_.find(element);
    return found == elements_.end() ? nullptr : &found->second;
}

}  // namespace tarvik
