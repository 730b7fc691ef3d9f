#include "page_control/injected/injected_script.h"

#include <algorithm>

#include "page_control/engine/launch.h"
#include "tarvik/text.h"

namespace tarvik {

namespace {

std::string UniqueIdentifier() {
    std::string name = Narrow(UniqueName());
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

}  // namespace

InjectedScript::InjectedScript(PageTarget& target, const EmbeddedText& body, const Json& options,
                               PostHandler onPost)
    : core_(UniqueIdentifier()) {
    const std::string binding = UniqueIdentifier();
    posts_ = target.Events().Subscribe<event::BindingCalled>(
        [binding, onPost = std::move(onPost)](const event::BindingCalled& call) {
            if (call.name == binding) onPost(call.payload, call.contextId);
        });
    const std::string arguments = "'" + binding + "', '" + core_ + "', " + options.dump();
    std::string source =
        "((bindingName, coreName, options) => { 'use strict';" + body.Text() + "})(" + arguments + ")";
    target.Post("Runtime.enable");
    target.Post("Runtime.addBinding", {{"name", binding}});
    target.Call("Page.addScriptToEvaluateOnNewDocument", {{"source", std::move(source)}});
}

std::string InjectedScript::CallText(std::string_view function, std::string_view arguments) const {
    return (core_ + ".").append(function).append("(").append(arguments).append(")");
}

}  // namespace tarvik
