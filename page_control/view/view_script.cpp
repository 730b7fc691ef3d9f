#include "page_control/view/view_script.h"

#include <algorithm>

#include "tarvik/text.h"

namespace tarvik {

namespace {

using EventType = ViewScript::PageEvent::Type;

struct EventName {
    protocol::Name<protocol::Kind::kViewEvent> name;
    EventType type;
};

constexpr EventName kEvents[] = {
    {"copied", EventType::kCopied},    {"reading", EventType::kReading},
    {"window", EventType::kNewWindow}, {"size", EventType::kSize},
    {"picker", EventType::kPicker},    {"fullscreen", EventType::kFullScreen},
    {"focus", EventType::kFocus},      {"suggestions", EventType::kSuggestions},
    {"press", EventType::kPress},      {"lock", EventType::kPointerLock},
};

ViewScript::PageEvent ParseEvent(std::string_view payload) {
    const size_t colon = payload.find(':');
    const auto* const event = std::ranges::find_if(
        kEvents, [&](const EventName& entry) { return entry.name == payload.substr(0, colon); });
    return {event->type, Widen(payload.substr(colon + 1))};
}

}  // namespace

ViewScript::ViewScript(PageTarget& target, bool textIsSelectable, EventHandler onEvent)
    : target_(target),
      script_(
          target, kViewScript, {{"textIsSelectable", textIsSelectable}},
          [onEvent = std::move(onEvent)](const std::string& payload, int) { onEvent(ParseEvent(payload)); }) {
}

void ViewScript::Evaluate(Function function, std::string_view arguments, bool awaitsPromise,
                          Handler handler) {
    const Json parameters = {{"expression", script_.CallText(function, arguments)},
                             {"awaitPromise", awaitsPromise},
                             {"returnByValue", true},
                             {"userGesture", true},
                             {"silent", true}};
    target_.Post("Runtime.evaluate", parameters, [handler = std::move(handler)](const Json* reply) {
        static const Json kNone;
        const bool failed = !reply || reply->contains("exceptionDetails");
        handler(failed ? kNone : reply->at("result").value("value", kNone));
    });
}

}  // namespace tarvik
