#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "page_control/engine/events.h"

namespace tarvik {

// Routes the events of a session, by method name, to the subscribers of their types (events.h). Main thread.
class EventRouter {
  public:
    // The subscription ends with its last owner, even during a dispatch.
    using Subscription = std::shared_ptr<const void>;

    // The handlers of an event are called, with a `const Event&`, in the order of their subscriptions.
    template <class Event, class Handler>
    [[nodiscard]] Subscription Subscribe(Handler handler) {
        return Add(Event::kMethod, &Parse<Event>, [handler = std::move(handler)](const void* event) {
            handler(*static_cast<const Event*>(event));
        });
    }

    // Keeps an object that the handlers belong to alive during each dispatch: script that runs in a handler
    // may release the last reference to it.
    void RetainDuringDispatch(std::weak_ptr<const void> owner) { owner_ = std::move(owner); }

    // Parses the parameters once for all subscribers. Handlers may subscribe, unsubscribe and destroy the
    // router.
    void Dispatch(std::string_view method, const event::json& params) const;

  private:
    // The types of events are erased here, because code for each of them would be a twentieth of the program.
    using AnyHandler = std::function<void(const void* event)>;
    using Parser = void (*)(const event::json& params, const AnyHandler& deliver);
    struct Topic {
        Parser parse = nullptr;
        std::vector<std::weak_ptr<const AnyHandler>> handlers;
    };

    template <class Event>
    static void Parse(const event::json& params, const AnyHandler& deliver) {
        const Event event = Event::Parse(params);
        deliver(&event);
    }

    Subscription Add(const char* method, Parser parse, AnyHandler handler);

    std::map<std::string_view, Topic> topics_;  // by Event::kMethod
    std::weak_ptr<const void> owner_;
};

}  // namespace tarvik
