#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "page_control/engine/events.h"
#include "tarvik/status.h"

namespace tarvik {

// Routes the events of a session, by method name, to the subscribers of their types (events.h). Main thread.
class EventRouter {
  public:
    // The subscription ends with its last owner, even during a dispatch.
    using Subscription = std::shared_ptr<const void>;

    // The handlers of an event are called in the order of their subscriptions.
    template <class Event>
    [[nodiscard]] Subscription Subscribe(std::function<void(const Event& event)> handler) {
        auto& topic = topics_[Event::kMethod];
        if (!topic) topic = std::make_shared<Topic<Event>>();
        return static_cast<Topic<Event>&>(*topic).Add(std::move(handler));
    }

    // Keeps an object that the handlers belong to alive during each dispatch: script that runs in a handler
    // may release the last reference to it.
    void RetainDuringDispatch(std::weak_ptr<const void> owner) { owner_ = std::move(owner); }

    // Handlers may subscribe, unsubscribe and destroy the router.
    void Dispatch(std::string_view method, const event::json& params) const {
        const auto owner = owner_.lock();
        const auto found = topics_.find(method);
        if (found == topics_.end()) return;
        const auto topic = found->second;
        topic->Dispatch(params);
    }

  private:
    class AnyTopic {
      public:
        virtual ~AnyTopic() = default;
        virtual void Dispatch(const event::json& params) = 0;
    };

    template <class Event>
    class Topic : public AnyTopic {
      public:
        using Handler = std::function<void(const Event& event)>;

        Subscription Add(Handler handler) {
            std::erase_if(handlers_, [](const auto& weak) { return weak.expired(); });
            auto added = std::make_shared<const Handler>(std::move(handler));
            handlers_.push_back(added);
            return added;
        }

        // Parses the parameters once for all subscribers.
        void Dispatch(const event::json& params) override {
            const auto handlers = handlers_;
            const Event event = Event::Parse(params);
            for (const auto& weak : handlers) {
                if (const auto handler = weak.lock()) (void)Guard([&] { (*handler)(event); });
            }
        }

      private:
        std::vector<std::weak_ptr<const Handler>> handlers_;
    };

    std::map<std::string_view, std::shared_ptr<AnyTopic>> topics_;  // by Event::kMethod
    std::weak_ptr<const void> owner_;
};

}  // namespace tarvik
