#include "page_control/engine/event_router.h"

#include <utility>

#include "tarvik/status.h"

namespace tarvik {

EventRouter::Subscription EventRouter::Add(const char* method, Parser parse, AnyHandler handler) {
    Topic& topic = topics_[method];
    topic.parse = parse;
    std::erase_if(topic.handlers, [](const auto& weak) { return weak.expired(); });
    auto added = std::make_shared<const AnyHandler>(std::move(handler));
    topic.handlers.push_back(added);
    return added;
}

void EventRouter::Dispatch(std::string_view method, const event::json& params) const {
    const auto owner = owner_.lock();
    const auto found = topics_.find(method);
    if (found == topics_.end()) return;
    const Topic topic = found->second;
    topic.parse(params, [&topic](const void* event) {
        for (const auto& weak : topic.handlers) {
            if (const auto handler = weak.lock()) (void)Guard([&] { (*handler)(event); });
        }
    });
}

}  // namespace tarvik
