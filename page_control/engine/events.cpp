#include "page_control/engine/events.h"

namespace tarvik::event {

namespace {

// The description of an Error contains its text, followed by the stack.
std::string MessageOf(const json& details) {
    const json exception = details.value("exception", json::object());
    std::string text = detail::Text(exception, "description");
    if (text.empty() && exception.contains("value")) text = exception["value"].dump();
    if (text.empty()) text = detail::Text(details, "text");
    if (detail::Text(exception, "subtype") == "error") text = text.substr(0, text.find("\n    at "));
    return text;
}

// The injected scripts throw the errors of native calls. They have no address, so the page's own line is
// further down the stack.
const json& LocationOf(const json& details) {
    const auto stack = details.find("stackTrace");
    if (!detail::Text(details, "url").empty() || stack == details.end()) return details;
    for (const json& frame : stack->at("callFrames")) {
        if (!detail::Text(frame, "url").empty()) return frame;
    }
    return details;
}

// The engine counts from zero.
int FromOne(const json& location, const char* name) {
    return static_cast<int>(1u + detail::Integer(location.value(name, json(0))));
}

}  // namespace

ExceptionThrown ExceptionThrown::Parse(const json& params) {
    const json& details = params.at("exceptionDetails");
    const json& location = LocationOf(details);
    return {MessageOf(details), detail::Text(location, "url"), FromOne(location, "lineNumber"),
            FromOne(location, "columnNumber")};
}

}  // namespace tarvik::event
