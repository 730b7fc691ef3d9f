#include "page_control/view/view_script.h"

#include "tarvik/text.h"

namespace tarvik {

namespace {

ViewScript::PageEvent ParseEvent(std::string_view payload) {
    using Type = ViewScript::PageEvent::Type;
    constexpr protocol::Name<protocol::Kind::kViewEvent> kCopied = "copied";
    const size_t colon = payload.find(':');
    const Type type = kCopied == payload.substr(0, colon) ? Type::kCopied : Type::kNewWindow;
    return {type, Widen(payload.substr(colon + 1))};
}

}  // namespace

ViewScript::ViewScript(PageTarget& target, bool textIsSelectable, EventHandler onEvent)
    : target_(target),
      script_(
          target, kViewScript, {{"textIsSelectable", textIsSelectable}},
          [onEvent = std::move(onEvent)](const std::string& payload, int) { onEvent(ParseEvent(payload)); }) {
}

Json ViewScript::EvaluateParameters(Function function, std::string_view arguments) const {
    return {{"expression", script_.CallText(function, arguments)},
            {"returnByValue", true},
            {"userGesture", true},
            {"silent", true}};
}

void ViewScript::Call(Function function, std::string_view arguments, Handler handler) {
    target_.Post("Runtime.evaluate", EvaluateParameters(function, arguments),
                 [handler = std::move(handler)](const Json* reply) {
                     static const Json kNone;
                     const bool failed = !reply || reply->contains("exceptionDetails");
                     handler(failed ? kNone : reply->at("result").value("value", kNone));
                 });
}

}  // namespace tarvik
