#include "page_control/accessibility/tree_loader.h"

#include <utility>

#include "page_control/accessibility/json_fields.h"

namespace tarvik {

namespace {

// Changes of text are reported for the element around it.
bool IsText(const Json& node) {
    const std::string& role = TextOf(Field(Field(node, "role"), "value"));
    return role == "StaticText" || role == "InlineTextBox";
}

}  // namespace

void TreeLoader::Load(Handler handler) {
    const auto round = round_ = std::make_shared<Round>(Round{std::move(handler), {}});
    target_.Post("DOMSnapshot.captureSnapshot",
                 {{"computedStyles", PageLayout::Styles()}, {"includePaintOrder", true}},
                 [this, weak = std::weak_ptr(round)](const Json* result) {
                     if (const auto current = weak.lock()) OnLayout(current, result);
                 });
}

void TreeLoader::Reset() {
    round_.reset();
    registered_.clear();
}

void TreeLoader::OnLayout(const std::shared_ptr<Round>& round, const Json* result) {
    if (result) round->snapshot.layout = PageLayout(*result);
    round->pending = round->snapshot.layout.Frames().size();
    if (round->pending == 0) return Finish(round, nullptr);
    target_.Engine().Batch([&] {
        for (const std::string& frame : round->snapshot.layout.Frames())
            LoadDocument(round, frame);
    });
}

void TreeLoader::LoadDocument(const std::shared_ptr<Round>& round, const std::string& frame) {
    target_.Post("Accessibility.getRootAXNode", {{"frameId", frame}});
    target_.Post("Accessibility.getFullAXTree", {{"frameId", frame}},
                 [this, weak = std::weak_ptr(round), frame](const Json* result) {
                     const auto current = weak.lock();
                     if (!current) return;
                     if (result) current->snapshot.documents[frame] = *result;
                     if (--current->pending == 0) Finish(current, &current->snapshot);
                 });
}

void TreeLoader::Finish(const std::shared_ptr<Round>& round, const PageSnapshot* snapshot) {
    round_.reset();
    if (snapshot) {
        target_.Engine().Batch([&] {
            for (const std::string& frame : snapshot->layout.Frames())
                RegisterChildren(frame, Field(Field(snapshot->documents, frame.c_str()), "nodes"));
        });
    }
    round->handler(snapshot);
}

void TreeLoader::RegisterChildren(const std::string& frame, const Json& nodes) {
    std::set<std::int64_t> elements;
    for (const Json& node : ItemsOf(nodes)) {
        if (!IsText(node)) elements.insert(IdOf(Field(node, "nodeId")));
    }
    for (const Json& node : ItemsOf(nodes)) {
        bool isNew = false;
        for (const Json& child : ItemsOf(Field(node, "childIds")))
            isNew |= elements.contains(IdOf(child)) && registered_.insert(IdOf(child)).second;
        if (isNew)
            target_.Post("Accessibility.getChildAXNodes",
                         {{"id", Field(node, "nodeId")}, {"frameId", frame}});
    }
}

}  // namespace tarvik
