#include "control/view/view_script.h"

#include "base/text.h"

namespace tarvik {

ViewScript::ViewScript(PageTarget& target, bool textIsSelectable)
    : target_(target), script_(target, kViewScript, {{"textIsSelectable", textIsSelectable}}) {}

Json ViewScript::EvaluateParameters(std::string_view function, std::string_view arguments) const {
    return {{"expression", script_.CallText(function, arguments)},
            {"returnByValue", true},
            {"userGesture", true},
            {"silent", true}};
}

void ViewScript::Call(std::string_view function, std::string_view arguments, Handler handler) {
    target_.Post("Runtime.evaluate", EvaluateParameters(function, arguments),
                 [handler = std::move(handler)](const Json* reply) {
                     static const Json kNone;
                     const bool failed = !reply || reply->contains("exceptionDetails");
                     handler(failed ? kNone : reply->at("result").value("value", kNone));
                 });
}

std::optional<ViewScript::PageEvent> ViewScript::ParseEvent(std::string_view method,
                                                            const Json& params) const {
    const std::string* const payload = method == "Runtime.bindingCalled" ? script_.Payload(params) : nullptr;
    if (!payload) return std::nullopt;
    const std::string_view event = *payload;
    const auto type = event.starts_with("copied:") ? PageEvent::Type::kCopied : PageEvent::Type::kNewWindow;
    return PageEvent{type, Widen(event.substr(event.find(':') + 1))};
}

}  // namespace tarvik
