#include "control/injected/injected_script.h"

#include <algorithm>

#include "base/text.h"
#include "control/engine/launch.h"

namespace tarvik {

namespace {

std::string UniqueIdentifier() {
    std::string name = Narrow(UniqueName());
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

}  // namespace

InjectedScript::InjectedScript(PageTarget& target, std::string_view body, const Json& options)
    : binding_(UniqueIdentifier()), core_(UniqueIdentifier()) {
    const std::string arguments = "'" + binding_ + "', '" + core_ + "', " + options.dump();
    std::string source =
        "((bindingName, coreName, options) => { 'use strict';" + std::string(body) + "})(" + arguments + ")";
    target.Post("Runtime.enable");
    target.Post("Runtime.addBinding", {{"name", binding_}});
    target.Call("Page.addScriptToEvaluateOnNewDocument", {{"source", std::move(source)}});
}

std::string InjectedScript::CallText(std::string_view function, std::string_view arguments) const {
    return (core_ + ".").append(function).append("(").append(arguments).append(")");
}

const std::string* InjectedScript::Payload(const Json& params) const {
    if (params.at("name") != binding_) return nullptr;
    return &params.at("payload").get_ref<const std::string&>();
}

}  // namespace tarvik
