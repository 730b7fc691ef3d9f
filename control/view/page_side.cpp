#include "control/view/page_side.h"

#include "tarvik/text.h"
#include "control/engine/launch.h"

namespace tarvik {

extern const std::string_view kViewScript;  // view.js

PageSide::PageSide(PageTarget& target, bool textIsSelectable)
    : target_(target), binding_(Narrow(UniqueName())), core_(Narrow(UniqueName())) {
    target_.Post("Runtime.enable");
    target_.Post("Runtime.addBinding", {{"name", binding_}});
    target_.Post("Page.addScriptToEvaluateOnNewDocument",
                 {{"source", std::string(kViewScript) + "('" + binding_ + "', '" + core_ + "', " +
                                 (textIsSelectable ? "true" : "false") + ")"}});
}

Json PageSide::Command(std::string_view function, std::string_view arguments) const {
    return {{"expression",
             "window['" + core_ + "']." + std::string(function) + "(" + std::string(arguments) + ")"},
            {"returnByValue", true},
            {"userGesture", true},
            {"silent", true}};
}

void PageSide::Ask(std::string_view function, std::string_view arguments, Handler handler) {
    target_.Post("Runtime.evaluate", Command(function, arguments),
                 [handler = std::move(handler)](const Json* reply) {
                     static const Json kNone;
                     const bool failed = !reply || reply->contains("exceptionDetails");
                     handler(failed ? kNone : reply->at("result").value("value", kNone));
                 });
}

std::optional<PageSide::Word> PageSide::Hear(std::string_view method, const Json& params) const {
    if (method != "Runtime.bindingCalled" || params.value("name", std::string()) != binding_)
        return std::nullopt;
    const std::string_view word = params.at("payload").get_ref<const std::string&>();
    const size_t colon = word.find(':');
    const auto kind = word.starts_with("copied:") ? Word::Kind::kCopied : Word::Kind::kNewWindow;
    return Word{kind, Widen(word.substr(colon + 1))};
}

}  // namespace tarvik
